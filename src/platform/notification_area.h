#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kestrava {

/// What the program tells the notification area of its icon: 504 bytes in the longest form.
/// `cbSize` says how many of them count.
struct NOTIFYICONDATA {
  std::int32_t cbSize;
  std::int32_t hWnd;  ///< the window that gets the icon's messages
  std::int32_t uID;
  std::int32_t uFlags;  ///< which of the fields below count
  std::int32_t uCallbackMessage;
  std::int32_t hIcon;
  char szTip[128];
  std::int32_t dwState;
  std::int32_t dwStateMask;
  char szInfo[256];       ///< the balloon's body; empty closes a balloon
  std::int32_t uTimeout;  ///< shares its place with `uVersion`
  char szInfoTitle[64];   ///< the balloon's title
  std::int32_t dwInfoFlags;
  std::uint8_t guidItem[16];
};
static_assert(offsetof(NOTIFYICONDATA, cbSize) == 0);
static_assert(offsetof(NOTIFYICONDATA, hWnd) == 4);
static_assert(offsetof(NOTIFYICONDATA, uID) == 8);
static_assert(offsetof(NOTIFYICONDATA, uFlags) == 12);
static_assert(offsetof(NOTIFYICONDATA, uCallbackMessage) == 16);
static_assert(offsetof(NOTIFYICONDATA, hIcon) == 20);
static_assert(offsetof(NOTIFYICONDATA, szTip) == 24);
static_assert(offsetof(NOTIFYICONDATA, dwState) == 152);
static_assert(offsetof(NOTIFYICONDATA, dwStateMask) == 156);
static_assert(offsetof(NOTIFYICONDATA, szInfo) == 160);
static_assert(offsetof(NOTIFYICONDATA, uTimeout) == 416);
static_assert(offsetof(NOTIFYICONDATA, szInfoTitle) == 420);
static_assert(offsetof(NOTIFYICONDATA, dwInfoFlags) == 484);
static_assert(offsetof(NOTIFYICONDATA, guidItem) == 488);
static_assert(sizeof(NOTIFYICONDATA) == 504);

/// The lengths that a record can have: the whole; without `guidItem`; up to the first 64 characters
/// of `szTip`, which leaves no room for a balloon.
enum NotifyIconSize : std::int32_t {
  kNotifyIconSizeWhole = 504,
  kNotifyIconSizeWithBalloon = 488,
  kNotifyIconSizeIconOnly = 88,
};

/// For a desktop: whether the record has one of these lengths.
inline bool HasKnownSize(const NOTIFYICONDATA& record) {
  return record.cbSize == kNotifyIconSizeWhole || record.cbSize == kNotifyIconSizeWithBalloon ||
         record.cbSize == kNotifyIconSizeIconOnly;
}

/// For a desktop: the part of a text field of `record` that lies within its length.
template <std::size_t kWidth>
std::string_view PresentPart(const NOTIFYICONDATA& record, const char (&field)[kWidth]) {
  const auto offset = static_cast<std::size_t>(field - reinterpret_cast<const char*>(&record));
  const auto size = static_cast<std::size_t>(record.cbSize);
  return {field, size > offset ? std::min(kWidth, size - offset) : 0};
}

/// Values from shellapi.h of the Windows SDK.
enum NotifyIconMessage : std::int32_t {
  NIM_ADD = 0,
  NIM_MODIFY = 1,
  NIM_DELETE = 2,
  NIM_SETVERSION = 4,
};
enum NotifyIconFlag : std::int32_t {
  NIF_MESSAGE = 1,
  NIF_ICON = 2,
  NIF_TIP = 4,
  NIF_INFO = 16,
};
inline constexpr std::int32_t NIS_SHAREDICON = 2;
inline constexpr std::int32_t NOTIFYICON_VERSION = 3;
/// The balloon shows the icon's own picture.
inline constexpr std::int32_t NIIF_USER = 4;

/// What happened at the icon: the last argument of its callback message. From winuser.h and
/// shellapi.h of the Windows SDK.
inline constexpr std::int32_t WM_RBUTTONUP = 0x205;
inline constexpr std::int32_t NIN_BALLOONUSERCLICK = 0x405;

/// The area of the desktop in which programs keep their icons.
class NotificationArea {
 public:
  virtual ~NotificationArea() = default;

  /// Adds, changes or removes the icon `record.uID`. Only the fields that `uFlags` names and that
  /// lie within `cbSize` count.
  /// @return 1 for success.
  virtual std::int32_t Shell_NotifyIconA(std::int32_t message, const NOTIFYICONDATA& record) = 0;
};

}  // namespace kestrava
