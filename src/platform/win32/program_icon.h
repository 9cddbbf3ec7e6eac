#pragma once

#include "platform/win32/handles.h"

namespace kestrava {

enum class IconSize { Small, Large };

/// The program's icon as the system has windows show it. It stays for the whole run.
HICON__* ProgramIcon(IconSize size);

}  // namespace kestrava
