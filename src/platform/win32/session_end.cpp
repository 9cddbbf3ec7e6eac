#include "platform/win32/session_end.h"

#include <system_error>
#include <utility>

#include "platform/error_report.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr const wchar_t* kClass = L"KestravaSessionEnd";

}  // namespace

SessionEnd::SessionEnd(std::function<void()> ended) : ended_(std::move(ended)) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = &Receive;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = kClass;
  RegisterClassW(&windowClass);
  window_ = CreateWindowExW(WS_EX_TOOLWINDOW, kClass, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                            windowClass.hInstance, nullptr);
  if (!window_) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
  }
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

SessionEnd::~SessionEnd() { DestroyWindow(window_); }

std::intptr_t SessionEnd::Receive(HWND window, unsigned message, std::uintptr_t wParam,
                                  std::intptr_t lParam) noexcept {
  auto* self = reinterpret_cast<SessionEnd*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  // (Other programs may still keep the session from ending: wParam tells.)
  if (!self || message != WM_ENDSESSION || wParam == 0) {
    return DefWindowProcW(window, message, wParam, lParam);
  }
  try {
    self->ended_();
  } catch (...) {
    ReportError(std::current_exception());
  }
  return 0;
}

}  // namespace kestrava
