#pragma once

#include <memory>

#include "platform/win32/native_control.h"

namespace kestrava {

/// Makes a label, or a link where the label looks like one.
std::unique_ptr<NativeControl> MakeNativeLabel(Label& label, HWND window, int id);

}  // namespace kestrava
