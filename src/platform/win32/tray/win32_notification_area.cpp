#include "platform/win32/tray/win32_notification_area.h"

#include <utility>

#include "platform/win32/program_icon.h"
#include "platform/win32/tray/native_icon_record.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr UINT_PTR kRetryTimer = 1;
constexpr UINT kRetryMilliseconds = 2000;

bool Tell(DWORD message, NOTIFYICONDATAW record) {
  return ::Shell_NotifyIconW(message, &record) != FALSE;
}

/// What every taskbar tells all windows when it has started.
UINT TaskbarCreated() {
  static const UINT message = RegisterWindowMessageW(L"TaskbarCreated");
  return message;
}

}  // namespace

Win32NotificationArea::Win32NotificationArea(Win32WindowMessages& messages)
    : messages_(messages),
      window_(MessageWindow::Kind::TopLevel, [this](unsigned message, std::uintptr_t wParam,
                                                    std::intptr_t lParam) {
        if (message == kNativeCallback) {
          TakeEvent(static_cast<std::int32_t>(lParam));
        } else if (message == TaskbarCreated() || (message == WM_TIMER && wParam == kRetryTimer)) {
          ShowAgain();
        } else {
          return false;
        }
        return true;
      }) {
  // A program that runs with more rights than the taskbar is told as well.
  ChangeWindowMessageFilterEx(window_.Handle(), TaskbarCreated(), MSGFLT_ALLOW, nullptr);
  messages_.SetHelper(window_.Handle());
}

Win32NotificationArea::~Win32NotificationArea() {
  if (icon_) Tell(NIM_DELETE, NativeIconRecord(*icon_, window_.Handle()));
  messages_.SetHelper(nullptr);
}

std::int32_t Win32NotificationArea::Shell_NotifyIconA(std::int32_t message,
                                                      const NOTIFYICONDATA& record) {
  if (!HasKnownSize(record)) return 0;
  if (message == NIM_ADD) {
    if (icon_ || !messages_.WindowOf(record.hWnd)) return 0;
    icon_ = record;
    ShowAgain();
    return 1;
  }
  if (!icon_ || icon_->hWnd != record.hWnd || icon_->uID != record.uID) return 0;
  const NOTIFYICONDATAW native = NativeIconRecord(record, window_.Handle());
  if (message == NIM_DELETE) {
    KillTimer(window_.Handle(), kRetryTimer);
    icon_.reset();
    return Tell(NIM_DELETE, native) ? 1 : 0;
  }
  if (message == NIM_MODIFY) NoteChange(record, *icon_);
  return Tell(static_cast<DWORD>(message), native) ? 1 : 0;
}

void Win32NotificationArea::ShowAgain() {
  KillTimer(window_.Handle(), kRetryTimer);
  if (icon_ && !Add()) SetTimer(window_.Handle(), kRetryTimer, kRetryMilliseconds, nullptr);
}

void Win32NotificationArea::TakeEvent(std::int32_t event) {
  if (!icon_) return;
  // A right click comes as WM_RBUTTONUP and then WM_CONTEXTMENU; the keyboard sends the latter
  // alone.
  if (event == WM_RBUTTONUP) ownsContextMenu_ = true;
  if (event == WM_CONTEXTMENU) {
    if (std::exchange(ownsContextMenu_, false)) return;
    event = WM_RBUTTONUP;
  }
  if (event == WM_MOUSEMOVE) ownsContextMenu_ = false;
  const NOTIFYICONDATA& icon = *icon_;
  if (icon.uCallbackMessage == 0) return;
  messages_.Send(icon.hWnd, icon.uCallbackMessage, icon.uID, event);
}

bool Win32NotificationArea::Add() {
  const NOTIFYICONDATAW native = NativeIconRecord(*icon_, window_.Handle());
  if (!Tell(NIM_ADD, native)) return false;
  Tell(NIM_SETVERSION, native);
  return true;
}

}  // namespace kestrava
