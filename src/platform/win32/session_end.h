#pragma once

#include <functional>

#include "platform/win32/message_window.h"

namespace kestrava {

/// Hears of the end of the user's session, whichever windows the program has and whatever waits.
class SessionEnd {
 public:
  /// `ended` is called once the session ends; the process may go as soon as it returns.
  /// @throws std::system_error if the system has no window left for it.
  explicit SessionEnd(std::function<void()> ended);

 private:
  MessageWindow window_;
};

}  // namespace kestrava
