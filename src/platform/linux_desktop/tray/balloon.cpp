#include "platform/linux_desktop/tray/balloon.h"

namespace kestrava {

Balloon::Balloon() {
  connect(&service_, &NotificationService::Clicked, this, &Balloon::Clicked);
  connect(&service_, &NotificationService::Failed, this,
          [this] { window_.ShowText(title_, body_, picture_, anchor_); });
  connect(&window_, &BalloonWindow::Clicked, this, &Balloon::Clicked);
}

void Balloon::Show(const QString& title, const QString& body, const QIcon& picture,
                   const QRect& anchor) {
  title_ = title;
  body_ = body;
  picture_ = picture;
  anchor_ = anchor;
  window_.hide();
  service_.Show(title, body, picture);
}

void Balloon::Hide() {
  service_.Hide();
  window_.hide();
}

}  // namespace kestrava
