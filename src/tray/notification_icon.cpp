#include "tray/notification_icon.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <span>
#include <string>
#include <vector>

#include "platform/notification_area.h"
#include "platform/program_title.h"
#include "platform/version_info.h"
#include "tray/modPopup.h"

namespace kestrava {

namespace {

constexpr std::int32_t kIconId = 999;
constexpr std::int32_t kBalloonHideTimeout = 3;
constexpr const char* kShellFile = "shell32.dll";

/// The high word of `dwFileVersionMS` in VS_FIXEDFILEINFO: the major version.
constexpr std::size_t kMajorVersionOffset = 10;

/// Text, one NUL, and blanks to the end of the field; a text too long for that is cut.
template <std::size_t kWidth>
void FillText(char (&field)[kWidth], std::string_view text) {
  std::fill(std::begin(field), std::end(field), ' ');
  const std::size_t length = std::min(text.size(), kWidth);
  std::copy_n(text.begin(), length, field);
  if (length < kWidth) field[length] = '\0';
}

}  // namespace

bool ShellVersionAtLeast(VersionInfo& versions, std::int32_t major) {
  const std::int32_t size = versions.GetFileVersionInfoSizeA(kShellFile);
  if (size <= 0) return false;
  std::vector<std::byte> buffer(static_cast<std::size_t>(size));
  versions.GetFileVersionInfoA(kShellFile, buffer);
  std::span<const std::byte> block;
  if (versions.VerQueryValueA(buffer, "\\", block) != 1) return false;
  std::int16_t number = 0;
  if (block.size() < kMajorVersionOffset + sizeof(number)) return false;
  std::memcpy(&number, block.data() + kMajorVersionOffset, sizeof(number));
  return number >= major;
}

void NotificationIcon::TrayIconAdd() {
  NOTIFYICONDATA record = NewRecord(popup_.Handle());
  record.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
  record.uCallbackMessage = kTrayCallbackMessage;
  record.hIcon = popup_.IconHandle();
  record.dwState = NIS_SHAREDICON;
  FillText(record.szTip, kProgramTitle);
  record.uTimeout = NOTIFYICON_VERSION;
  if (area_.Shell_NotifyIconA(NIM_ADD, record) != 1) return;
  area_.Shell_NotifyIconA(NIM_SETVERSION, record);
  popup_.HookTrayMessages(popup_.Handle());
}

void NotificationIcon::TrayIconRemove() {
  area_.Shell_NotifyIconA(NIM_DELETE, NewRecord(popup_.Handle()));
  // After the icon, so that no message of it comes in when nothing answers it any more.
  popup_.UnhookTrayMessages(popup_.Handle());
}

void NotificationIcon::TrayBalloonShow(std::int32_t infoFlags, std::string_view title,
                                       std::string_view text) {
  NOTIFYICONDATA record = NewRecord(popup_.Handle());
  record.uFlags = NIF_INFO;
  record.dwInfoFlags = infoFlags;
  FillText(record.szInfoTitle, title);
  FillText(record.szInfo, text);
  area_.Shell_NotifyIconA(NIM_MODIFY, record);
}

void NotificationIcon::TrayBalloonHide(std::int32_t hWnd) {
  NOTIFYICONDATA record = NewRecord(hWnd);
  record.uFlags = NIF_TIP | NIF_INFO;
  FillText(record.szTip, "");
  record.uTimeout = kBalloonHideTimeout;
  area_.Shell_NotifyIconA(NIM_MODIFY, record);
}

NOTIFYICONDATA NotificationIcon::NewRecord(std::int32_t hWnd) {
  if (trayRecordByteSize_ == 0) TrayRecordSize();
  NOTIFYICONDATA record{};
  record.cbSize = trayRecordByteSize_;
  record.hWnd = hWnd;
  record.uID = kIconId;
  return record;
}

void NotificationIcon::TrayRecordSize() {
  if (ShellVersionAtLeast(versions_, 6)) {
    trayRecordByteSize_ = kNotifyIconSizeWhole;
  } else if (ShellVersionAtLeast(versions_, 5)) {
    trayRecordByteSize_ = kNotifyIconSizeWithBalloon;
  } else {
    trayRecordByteSize_ = kNotifyIconSizeIconOnly;
  }
}

}  // namespace kestrava
