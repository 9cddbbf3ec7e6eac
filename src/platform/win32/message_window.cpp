#include "platform/win32/message_window.h"

#include <system_error>
#include <utility>

#include "platform/error_report.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr const wchar_t* kClass = L"KestravaMessages";

}  // namespace

MessageWindow::MessageWindow(Kind kind, Handler handler) : handler_(std::move(handler)) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = &Receive;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = kClass;
  RegisterClassW(&windowClass);
  // A tool window has no button in the taskbar.
  window_ = CreateWindowExW(WS_EX_TOOLWINDOW, kClass, L"", WS_POPUP, 0, 0, 0, 0,
                            kind == Kind::MessagesOnly ? HWND_MESSAGE : nullptr, nullptr,
                            windowClass.hInstance, nullptr);
  if (!window_) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
  }
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

MessageWindow::~MessageWindow() {
  // The handler's owner is about to go.
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
}

std::intptr_t MessageWindow::Receive(HWND window, unsigned message, std::uintptr_t wParam,
                                     std::intptr_t lParam) noexcept {
  auto* self = reinterpret_cast<MessageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  try {
    if (self && self->handler_(message, wParam, lParam)) return 0;
  } catch (...) {
    ReportError(std::current_exception());
    return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace kestrava
