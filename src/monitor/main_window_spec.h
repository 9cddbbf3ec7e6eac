#pragma once

#include "platform/form.h"

namespace kestrava {

/// The main window as data: its controls and its menu bar.
extern const FormSpec kMainWindowSpec;

}  // namespace kestrava
