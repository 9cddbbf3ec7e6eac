#pragma once

#include <QMenuBar>

#include "platform/form.h"

namespace kestrava {

/// Fills `bar` with the menu table of `form`. The entries show the table's state for as long as
/// `link` lives, and feed clicks back to it.
void BuildMenu(const Form& form, QObject& link, QMenuBar& bar);

}  // namespace kestrava
