#include "platform/win32/message_pump.h"

#include "platform/win32/native_window.h"
#include "platform/win32/win32_event_loop.h"

namespace kestrava {

bool ServeNextMessage(Win32EventLoop& eventLoop) {
  MSG message{};
  bool came = PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;
  if (!came) {
    if (eventLoop.TakeIdle()) return true;
    came = GetMessageW(&message, nullptr, 0, 0) > 0;
  }
  if (!came || message.message == WM_QUIT) {
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
