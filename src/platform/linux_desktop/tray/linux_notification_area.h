#pragma once

#include <memory>
#include <utility>

#include "platform/linux_desktop/tray/balloon.h"
#include "platform/linux_desktop/tray/tray_icon.h"
#include "platform/notification_area.h"
#include "platform/qt/qt_window_messages.h"

namespace kestrava {

/// The notification area of the desktop. It has room for one icon. What the user does there comes
/// to the icon's window as a message, and desktops that draw the icon's menu themselves get that of
/// `WindowMessages::SetIconMenu`.
class LinuxNotificationArea final : public NotificationArea {
 public:
  explicit LinuxNotificationArea(QtWindowMessages& messages) : messages_(messages) {}

  std::int32_t Shell_NotifyIconA(std::int32_t message, const NOTIFYICONDATA& record) override;

 private:
  struct Icon {
    Icon(const NOTIFYICONDATA& record, TrayIcon::MakeMenu makeMenu, const QWidget& owner)
        : window(record.hWnd), id(record.uID), shown(std::move(makeMenu), owner) {}

    std::int32_t window;
    std::int32_t id;
    std::int32_t callbackMessage = 0;
    TrayIcon shown;
    Balloon balloon;
  };

  void Add(const NOTIFYICONDATA& record, const QWidget& owner);
  void Modify(const NOTIFYICONDATA& record);
  void Tell(std::int32_t event);

  QtWindowMessages& messages_;
  std::unique_ptr<Icon> icon_;
};

}  // namespace kestrava
