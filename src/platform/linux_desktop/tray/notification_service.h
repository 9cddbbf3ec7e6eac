#pragma once

#include <QDBusMessage>
#include <QIcon>
#include <QObject>
#include <QTimer>
#include <functional>
#include <optional>

#include "platform/linux_desktop/tray/bus_name_watch.h"

namespace kestrava {

/// The desktop's notification service: org.freedesktop.Notifications, which freedesktop.org
/// describes under "Desktop Notifications". It shows one notification at a time. Nothing here ever
/// waits for the service.
class NotificationService final : public QObject {
  Q_OBJECT

 public:
  NotificationService();

  /// Shows a notification, in place of the one that is up. `picture` may be null.
  void Show(const QString& title, const QString& body, const QIcon& picture);

  /// Closes the notification. One that the service has yet to show is closed as soon as it shows.
  void Hide();

 signals:
  void Clicked();
  /// The service doesn't show the notification, can't tell a click on it, or has gone with it.
  void Failed();

 private slots:
  void TakeAnswer(const QDBusMessage& answer);
  void TakeError(const QDBusError& error, const QDBusMessage& answer);
  void TakeClick(uint id, const QString& action, const QDBusMessage& signal);
  void TakeClosed(uint id, uint reason, const QDBusMessage& signal);
  /// The click's token lets the program bring its window to the front.
  void TakeActivationToken(uint id, const QString& token, const QDBusMessage& signal);

 private:
  using Take = std::function<void(const QDBusMessage& answer)>;

  bool Connect();
  void Ask(const char* method, const QVariantList& arguments, Take take);
  void TakeCapabilities(const QStringList& capabilities, const QString& title, QString body,
                        const QIcon& picture);
  /// Whether the signal is about the notification that is up, and from whoever shows it.
  bool IsOurs(uint id, const QDBusMessage& signal) const;
  void Close(uint id);
  void Fail();

  std::optional<BusNameWatch> watcher_;  ///< from the first connection to the bus on
  QTimer patience_;
  /// Counts what was asked of the service, so that a late answer to an earlier request is known.
  unsigned requestId_ = 0;
  bool wanted_ = false;  ///< a notification is up or asked for
  Take takeReply_;       ///< takes the reply that is pending; empty where none is
  uint id_ = 0;          ///< of the notification that is up; 0 for none
  QString shownBy_;      ///< the unique bus name of whoever shows it
};

}  // namespace kestrava
