#pragma once

#include <QIcon>
#include <QObject>

#include "platform/linux_desktop/tray/balloon_window.h"
#include "platform/linux_desktop/tray/notification_service.h"

namespace kestrava {

/// A text that the user sees at the tray for a while and can click: by the desktop's notification
/// service where that can be done, otherwise in a window of our own.
class Balloon final : public QObject {
  Q_OBJECT

 public:
  Balloon();

  /// Shows both as plain text beside the picture, which may be null, in place of what is up.
  /// `anchor` is where the icon is, or empty.
  void Show(const QString& title, const QString& body, const QIcon& picture, const QRect& anchor);
  void Hide();

 signals:
  void Clicked();

 private:
  QString title_;
  QString body_;
  QIcon picture_;
  QRect anchor_;
  NotificationService service_;
  BalloonWindow window_;
};

}  // namespace kestrava
