#include "platform/win32/program_icon.h"

#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

/// Its number among the program's resources.
constexpr int kIcon = 1;

}  // namespace

HICON ProgramIcon(IconSize size) {
  const bool small = size == IconSize::Small;
  const int width = GetSystemMetrics(small ? SM_CXSMICON : SM_CXICON);
  const int height = GetSystemMetrics(small ? SM_CYSMICON : SM_CYICON);
  return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kIcon),
                                       IMAGE_ICON, width, height, LR_SHARED));
}

}  // namespace kestrava
