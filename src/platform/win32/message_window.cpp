#include "platform/win32/message_window.h"

#include <system_error>
#include <utility>

#include "platform/error_report.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr const wchar_t* kClass = L"KestravaMessages";

}  // namespace

MessageWindow::MessageWindow(Handler handler) : handler_(std::move(handler)) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = &Receive;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = kClass;
  RegisterClassW(&windowClass);
  window_ = CreateWindowExW(0, kClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                            windowClass.hInstance, nullptr);
  if (!window_) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
  }
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

MessageWindow::~MessageWindow() { DestroyWindow(window_); }

std::intptr_t MessageWindow::Receive(HWND window, unsigned message, std::uintptr_t wParam,
                                     std::intptr_t lParam) noexcept {
  auto* self = reinterpret_cast<MessageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!self || (message < WM_APP && message != WM_TIMER)) {
    return DefWindowProcW(window, message, wParam, lParam);
  }
  try {
    self->handler_(message, wParam, lParam);
  } catch (...) {
    ReportError(std::current_exception());
  }
  return 0;
}

}  // namespace kestrava
