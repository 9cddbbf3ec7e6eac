#pragma once

#include "monitor/frmMain.h"
#include "platform/linux_desktop/linux_desktop.h"

namespace kestrava {

using NativeDesktop = LinuxDesktop;

}  // namespace kestrava
