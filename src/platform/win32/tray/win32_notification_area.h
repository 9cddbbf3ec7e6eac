#pragma once

#include <optional>

#include "platform/notification_area.h"
#include "platform/win32/message_window.h"
#include "platform/win32/tray/win32_window_messages.h"

namespace kestrava {

/// The system's own notification area. It has room for one icon. What the user does there comes to
/// the icon's window as a message.
///
/// An icon that can't be shown yet, because the taskbar isn't there when the user logs in, is shown
/// as soon as it can be; and again when the taskbar has started anew.
class Win32NotificationArea final : public NotificationArea {
 public:
  explicit Win32NotificationArea(Win32WindowMessages& messages);
  ~Win32NotificationArea() override;
  Win32NotificationArea(const Win32NotificationArea&) = delete;
  Win32NotificationArea& operator=(const Win32NotificationArea&) = delete;

  std::int32_t Shell_NotifyIconA(std::int32_t message, const NOTIFYICONDATA& record) override;

 private:
  /// The taskbar is there, or worth another try.
  void ShowAgain();
  /// The taskbar tells what happened at the icon.
  void TakeEvent(std::int32_t event);
  bool Add();

  Win32WindowMessages& messages_;
  MessageWindow window_;                ///< gets what the taskbar tells
  std::optional<NOTIFYICONDATA> icon_;  ///< as it was added, with what was changed since
  bool ownsContextMenu_ = false;        ///< a right click's own WM_CONTEXTMENU is to come
};

}  // namespace kestrava
