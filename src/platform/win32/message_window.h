#pragma once

#include <cstdint>
#include <functional>

#include "platform/win32/handles.h"

namespace kestrava {

/// A window that nobody sees, to which the system and other threads send messages. They are served
/// inside the system's own modal waits, too.
class MessageWindow {
 public:
  enum class Kind {
    MessagesOnly,  ///< hears what is sent to it alone
    TopLevel,      ///< hears also what is told to all windows, such as the end of the session
  };

  /// Takes a message. An error that it lets out is told on standard error, and the message counts
  /// as taken. @return whether it was one for it; the system answers any other.
  using Handler =
      std::function<bool(unsigned message, std::uintptr_t wParam, std::intptr_t lParam)>;

  /// @throws std::system_error if the system has no window left for it.
  MessageWindow(Kind kind, Handler handler);
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
