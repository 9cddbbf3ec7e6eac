#pragma once

#include <QActionGroup>
#include <QMenuBar>

#include "platform/form.h"
#include "platform/qt/link.h"

namespace kestrava {

/// Fills `bar` with the menu table of `form`. The entries show the table's state for as long as
/// `link` lives, and feed clicks back to it. Those of the kind `Entry` join `commands`.
void BuildMenu(const Form& form, Link& link, QMenuBar& bar, QActionGroup& commands);

}  // namespace kestrava
