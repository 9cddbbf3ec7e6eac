#include "platform/win32/tray/native_icon_record.h"

#include <algorithm>
#include <string>

#include "platform/win32/program_icon.h"
#include "platform/win32/wide_text.h"

namespace kestrava {

namespace {

/// Puts a text field of the record, as far as it is there, into the system's own field.
template <std::size_t kWidth, std::size_t kNativeWidth>
void Translate(const NOTIFYICONDATA& record, const char (&field)[kWidth],
               wchar_t (&native)[kNativeWidth]) {
  const std::wstring text = ToShownField(PresentPart(record, field));
  native[text.copy(native, kNativeWidth - 1)] = L'\0';
}

template <std::size_t kWidth>
void Copy(const char (&from)[kWidth], char (&to)[kWidth]) {
  std::ranges::copy(from, to);
}

}  // namespace

NOTIFYICONDATAW NativeIconRecord(const NOTIFYICONDATA& record, HWND window) {
  NOTIFYICONDATAW native{};
  native.cbSize = sizeof(native);
  native.hWnd = window;
  native.uID = static_cast<UINT>(record.uID);
  native.uFlags = static_cast<UINT>(record.uFlags & (NIF_MESSAGE | NIF_ICON | NIF_TIP | NIF_INFO));
  native.uCallbackMessage = kNativeCallback;
  if (record.uFlags & NIF_ICON) native.hIcon = ProgramIcon(IconSize::Small);
  if (record.uFlags & NIF_TIP) Translate(record, record.szTip, native.szTip);
  if (record.cbSize < kNotifyIconSizeWithBalloon) {
    native.uFlags &= ~static_cast<UINT>(NIF_INFO);
  } else if (record.uFlags & NIF_INFO) {
    Translate(record, record.szInfo, native.szInfo);
    Translate(record, record.szInfoTitle, native.szInfoTitle);
    native.dwInfoFlags = static_cast<DWORD>(record.dwInfoFlags);
    native.hBalloonIcon = ProgramIcon(IconSize::Large);
  }
  native.uVersion = static_cast<UINT>(record.uTimeout);
  return native;
}

void NoteChange(const NOTIFYICONDATA& change, NOTIFYICONDATA& icon) {
  if (change.uFlags & NIF_MESSAGE) icon.uCallbackMessage = change.uCallbackMessage;
  if (change.uFlags & NIF_ICON) icon.hIcon = change.hIcon;
  if (change.uFlags & NIF_TIP) Copy(change.szTip, icon.szTip);
}

}  // namespace kestrava
