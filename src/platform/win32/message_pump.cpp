#include "platform/win32/message_pump.h"

#include "platform/win32/native_window.h"

namespace kestrava {

bool ServeNextMessage() {
  MSG message{};
  if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
    // Whoever waits further down the stack is to end as well.
    PostQuitMessage(0);
    return false;
  }
  Serve(message);
  return true;
}

void Serve(MSG& message) {
  NativeWindow* window =
      message.hwnd ? NativeWindow::Of(GetAncestor(message.hwnd, GA_ROOT)) : nullptr;
  if (window && window->TakeKey(message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

}  // namespace kestrava
