#include "platform/win32/win32_event_loop.h"

#include <algorithm>
#include <system_error>

#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

using std::chrono::steady_clock;

constexpr const wchar_t* kClass = L"KestravaEventLoop";
constexpr UINT kTurnMessage = WM_APP;
constexpr UINT_PTR kRestTimer = 1;
constexpr UINT kLongestRestMilliseconds = 10;
constexpr std::chrono::microseconds kSparedFor(100);

}  // namespace

Win32EventLoop::Win32EventLoop() {
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

Win32EventLoop::~Win32EventLoop() { DestroyWindow(window_); }

void Win32EventLoop::EndRest() {
  if (rests_) FinishTurn();
}

void Win32EventLoop::End() {
  ended_ = true;
  PostQuitMessage(0);
}

std::intptr_t Win32EventLoop::Receive(HWND__* window, unsigned message, std::uintptr_t wParam,
                                      std::intptr_t lParam) {
  auto* loop = reinterpret_cast<Win32EventLoop*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (loop && message == kTurnMessage) {
    loop->EndShortTurn();
    return 0;
  }
  if (loop && message == WM_TIMER) {
    loop->FinishTurn();
    return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

bool Win32EventLoop::TurnIsSpared() {
  return !AnyUnderWay() && steady_clock::now() - lastTurn_ < kSparedFor;
}

void Win32EventLoop::BeginTurn() {
  if (AnyUnderWay() || !PostMessageW(window_, kTurnMessage, 0, 0)) Rest();
}

void Win32EventLoop::Rest() {
  rests_ = true;
  SetTimer(window_, kRestTimer, kLongestRestMilliseconds, nullptr);
}

void Win32EventLoop::EndShortTurn() {
  // A posted message comes ahead of what the user does, of painting and of timers: of all that the
  // turn is for. A timer comes after all of them.
  if (HIWORD(GetQueueStatus(QS_INPUT | QS_PAINT | QS_TIMER)) != 0) return Rest();
  FinishTurn();
}

void Win32EventLoop::FinishTurn() {
  if (rests_) KillTimer(window_, kRestTimer);
  rests_ = false;
  lastTurn_ = steady_clock::now();
  EndTurn();
}

bool Win32EventLoop::AnyUnderWay() const {
  return std::ranges::any_of(watched_, [](const auto& isUnderWay) { return isUnderWay(); });
}

}  // namespace kestrava
