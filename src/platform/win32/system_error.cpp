#include "platform/win32/system_error.h"

#include <array>

#include "platform/runtime_error.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

void RaiseSystemError(unsigned long error) {
  std::array<wchar_t, 512> text{};
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
  std::string description = LineToBytes({text.data(), length});
  while (description.ends_with(' ') || description.ends_with('.')) description.pop_back();
  throw RuntimeError(SystemErrorNumber{static_cast<int>(error)}, description);
}

}  // namespace kestrava
