#include "platform/win32/window_frame.h"

#include <algorithm>
#include <string>

#include "platform/win32/program_icon.h"
#include "platform/win32/wide_text.h"

namespace kestrava {

namespace {

DWORD StyleOf(FormStyle style) {
  switch (style) {
    case FormStyle::MainWindow:
      return WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
    case FormStyle::ToolWindow:
      return WS_POPUP | WS_CAPTION | WS_SYSMENU;
    case FormStyle::ToolWindowWithoutClose:
      break;
  }
  return WS_POPUP | WS_CAPTION;
}

DWORD ExtendedStyleOf(FormStyle style) {
  return style == FormStyle::MainWindow ? WS_EX_CONTROLPARENT
                                        : WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME;
}

MONITORINFO MonitorOf(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof(monitor);
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor;
}

}  // namespace

HWND MakeWindow(const FormSpec& form, HWND owner, WNDPROC procedure) {
  const std::wstring name = ToWide(form.name);
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof(windowClass);
  windowClass.lpfnWndProc = procedure;
  // The system sees to the focus and the default button, as in any dialog.
  windowClass.cbWndExtra = DLGWINDOWEXTRA;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  if (form.style == FormStyle::MainWindow) {
    windowClass.hIcon = ProgramIcon(IconSize::Large);
    windowClass.hIconSm = ProgramIcon(IconSize::Small);
  }
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  windowClass.lpszClassName = name.c_str();
  // It may be there already, from an earlier window of the same form.
  RegisterClassExW(&windowClass);
  return CreateWindowExW(ExtendedStyleOf(form.style), name.c_str(), ToWide(form.caption).c_str(),
                         StyleOf(form.style), CW_USEDEFAULT, CW_USEDEFAULT, 0, 0, owner, nullptr,
                         windowClass.hInstance, nullptr);
}

void SizeInner(HWND window, PixelSize size) {
  RECT outer{0, 0, size.width, size.height};
  AdjustWindowRectExForDpi(&outer, static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)),
                           GetMenu(window) ? TRUE : FALSE,
                           static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)),
                           GetDpiForWindow(window));
  SetWindowPos(window, nullptr, 0, 0, static_cast<int>(outer.right - outer.left),
               static_cast<int>(outer.bottom - outer.top),
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void PutOverOwner(HWND window) {
  const RECT room = MonitorOf(window).rcWork;
  RECT below = room;
  const HWND owner = GetWindow(window, GW_OWNER);
  if (owner && IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &below);
  RECT outer{};
  GetWindowRect(window, &outer);
  const LONG width = outer.right - outer.left;
  const LONG height = outer.bottom - outer.top;
  const LONG left = (below.left + below.right - width) / 2;
  const LONG top = (below.top + below.bottom - height) / 2;
  SetWindowPos(window, nullptr,
               static_cast<int>(std::max(room.left, std::min(left, room.right - width))),
               static_cast<int>(std::max(room.top, std::min(top, room.bottom - height))), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void KeepCentre(HWND window, const RECT& before) {
  RECT after{};
  GetWindowRect(window, &after);
  SetWindowPos(window, nullptr,
               static_cast<int>(before.left + before.right - after.right + after.left) / 2,
               static_cast<int>(before.top + before.bottom - after.bottom + after.top) / 2, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ShowPointer(HWND window, MousePointer pointer) {
  POINT position{};
  GetCursorPos(&position);
  const HWND under = WindowFromPoint(position);
  if (!under || GetAncestor(under, GA_ROOT) != window) return;
  SetCursor(LoadCursorW(nullptr, pointer == MousePointer::Busy ? IDC_APPSTARTING : IDC_ARROW));
}

RECT ScreenOf(HWND window) { return MonitorOf(window).rcMonitor; }

}  // namespace kestrava
