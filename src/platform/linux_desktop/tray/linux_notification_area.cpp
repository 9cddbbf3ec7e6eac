#include "platform/linux_desktop/tray/linux_notification_area.h"

#include "platform/qt/text.h"

namespace kestrava {

std::int32_t LinuxNotificationArea::Shell_NotifyIconA(std::int32_t message,
                                                      const NOTIFYICONDATA& record) {
  if (!HasKnownSize(record)) return 0;
  const bool known = icon_ && icon_->window == record.hWnd && icon_->id == record.uID;
  if (message == NIM_ADD) {
    const QWidget* owner = messages_.WindowOf(record.hWnd);
    if (icon_ || !owner) return 0;
    Add(record, *owner);
    return 1;
  }
  if (!known) return 0;
  switch (message) {
    case NIM_MODIFY:
      Modify(record);
      return 1;
    case NIM_DELETE:
      icon_->balloon.Hide();
      icon_.reset();
      return 1;
    case NIM_SETVERSION:
      return 1;
    default:
      return 0;
  }
}

void LinuxNotificationArea::Add(const NOTIFYICONDATA& record, const QWidget& owner) {
  const auto makeMenu = [this] { return messages_.MakeIconMenu(); };
  icon_ = std::make_unique<Icon>(record, makeMenu, owner);
  QObject::connect(&icon_->shown, &TrayIcon::ContextRequested, &icon_->shown,
                   [this] { Tell(WM_RBUTTONUP); });
  QObject::connect(&icon_->balloon, &Balloon::Clicked, &icon_->balloon,
                   [this] { Tell(NIN_BALLOONUSERCLICK); });
  Modify(record);
}

void LinuxNotificationArea::Modify(const NOTIFYICONDATA& record) {
  if (record.uFlags & NIF_MESSAGE) icon_->callbackMessage = record.uCallbackMessage;
  if (record.uFlags & NIF_ICON) icon_->shown.SetIcon(messages_.IconOf(record.hIcon));
  if (record.uFlags & NIF_TIP) icon_->shown.SetTip(ToShownField(PresentPart(record, record.szTip)));
  if (!(record.uFlags & NIF_INFO) || record.cbSize < kNotifyIconSizeWithBalloon) return;
  const QString body = ToShownField(PresentPart(record, record.szInfo));
  if (body.isEmpty()) {
    icon_->balloon.Hide();
  } else {
    const QString title = ToShownField(PresentPart(record, record.szInfoTitle));
    const QIcon picture = record.dwInfoFlags == NIIF_USER ? icon_->shown.Icon() : QIcon();
    icon_->balloon.Show(title, body, picture, icon_->shown.Geometry());
  }
}

void LinuxNotificationArea::Tell(std::int32_t event) {
  if (icon_->callbackMessage == 0) return;
  messages_.Post(icon_->window, icon_->callbackMessage, icon_->id, event);
}

}  // namespace kestrava
