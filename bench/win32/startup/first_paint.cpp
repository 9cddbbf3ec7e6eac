// Linked into a program with windows, ends it with status 0 as soon as its first window has been
// painted.

#include <windows.h>

namespace {

HHOOK hook;

void CALLBACK End(HWND, UINT, UINT_PTR, DWORD) { TerminateProcess(GetCurrentProcess(), 0); }

/// Every part of the window is painted before a timer's message comes.
LRESULT CALLBACK WatchForPaint(int code, WPARAM wParam, LPARAM lParam) {
  if (code == HC_ACTION && wParam == PM_REMOVE &&
      reinterpret_cast<const MSG*>(lParam)->message == WM_PAINT) {
    UnhookWindowsHookEx(hook);
    SetTimer(nullptr, 0, USER_TIMER_MINIMUM, End);
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

const bool watches = [] {
  hook = SetWindowsHookExW(WH_GETMESSAGE, WatchForPaint, nullptr, GetCurrentThreadId());
  return hook != nullptr;
}();

}  // namespace
