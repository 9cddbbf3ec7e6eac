#pragma once

#include <cstdint>
#include <functional>

#include "platform/win32/handles.h"

namespace kestrava {

/// A window that nobody sees, to which the system and other threads send messages. They are served
/// inside the system's own modal waits, too.
class MessageWindow {
 public:
  /// Takes a message of the program's own (from WM_APP up) or WM_TIMER. An error that it lets out
  /// is told on standard error.
  using Handler =
      std::function<void(unsigned message, std::uintptr_t wParam, std::intptr_t lParam)>;

  /// @throws std::system_error if the system has no window left for it.
  explicit MessageWindow(Handler handler);
  ~MessageWindow();
  MessageWindow(const MessageWindow&) = delete;
  MessageWindow& operator=(const MessageWindow&) = delete;

  HWND__* Handle() const { return window_; }

 private:
  static std::intptr_t __stdcall Receive(HWND__* window, unsigned message, std::uintptr_t wParam,
                                         std::intptr_t lParam) noexcept;

  Handler handler_;
  HWND__* window_;
};

}  // namespace kestrava
