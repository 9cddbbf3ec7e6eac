#pragma once

#include "monitor/frmMain.h"
#include "platform/win32/windows_desktop.h"

namespace kestrava {

using NativeDesktop = WindowsDesktop;

}  // namespace kestrava
