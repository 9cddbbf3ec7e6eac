#pragma once

#include <cstdint>
#include <functional>

#include "platform/win32/handles.h"

namespace kestrava {

/// Hears of the end of the user's session, whichever windows the program has and whatever waits.
class SessionEnd {
 public:
  /// `ended` is called once the session ends; the process may go as soon as it returns.
  /// @throws std::system_error if the system has no window left for it.
  explicit SessionEnd(std::function<void()> ended);
  ~SessionEnd();
  SessionEnd(const SessionEnd&) = delete;
  SessionEnd& operator=(const SessionEnd&) = delete;

 private:
  static std::intptr_t __stdcall Receive(HWND__* window, unsigned message, std::uintptr_t wParam,
                                         std::intptr_t lParam) noexcept;

  std::function<void()> ended_;
  HWND__* window_;  ///< never seen; windows for messages alone aren't told
};

}  // namespace kestrava
