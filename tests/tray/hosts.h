#pragma once

#include <QApplication>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDebug>
#include <QProcess>
#include <QThread>
#include <optional>

namespace kestrava::test {

/// A program that runs until the test ends.
struct Program : QProcess {
  Program(const QString& name, const QStringList& options) { start(name, options); }
  ~Program() override {
    kill();
    waitForFinished();
  }
  QByteArray FirstLine() {
    while (!canReadLine() && waitForReadyRead()) continue;
    return readLine().trimmed();
  }
};

/// An X server of the test's own, with nothing on it but the application.
struct Screen {
  Screen() {
    qputenv("DISPLAY", ":" + server.FirstLine());
    application.emplace(argc, argv);
  }

  Program server{"Xvfb", {"-displayfd", "1", "-nolisten", "tcp", "-r"}};
  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  std::optional<QApplication> application;
};

/// A session bus of the test's own. It starts nothing, so that only the test's services are on it.
struct Bus {
  Bus() { qputenv("DBUS_SESSION_BUS_ADDRESS", daemon.FirstLine()); }

  Program daemon{"dbus-daemon", {"--nofork", "--print-address", "--config-file=" BUS_CONFIG}};
};

/// A notification service.
class Notifications : public QObject, public QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

 public:
  QString silentAt;  ///< the call that it doesn't answer
  QString shown;     ///< what was asked for last; empty while nothing is up

 public slots:
  QStringList GetCapabilities() {
    setDelayedReply(silentAt == "GetCapabilities");
    return {"actions", "body-markup"};
  }
  uint Notify(const QString&, uint, const QString&, const QString& title, const QString& body,
              const QStringList& actions, const QVariantMap&, int) {
    setDelayedReply(silentAt == "Notify");
    shown = actions.value(0) + ": " + title + ": " + body;
    return 41;
  }
  void CloseNotification(uint) { shown.clear(); }
};

/// A watcher for StatusNotifierItem icons, with a host.
class Watcher : public QObject, public QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
  Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER hasHost)

 public:
  bool hasHost = true;
  bool silent = false;  ///< it doesn't answer an icon that registers
  QString icon;         ///< bus name of the icon that registered

 public slots:
  void RegisterStatusNotifierItem(const QString& item) {
    setDelayedReply(silent);
    icon = item;
  }
};

/// The services of a desktop, which live on a thread and a bus connection of their own.
struct Services {
  static constexpr auto kTray = "org.kde.StatusNotifierWatcher";
  static constexpr auto kNotifications = "org.freedesktop.Notifications";
  static constexpr auto kNotificationsPath = "/org/freedesktop/Notifications";

  Services() {
    watcher.moveToThread(&thread);
    notifications.moveToThread(&thread);
    thread.start();
    const auto parts = QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties;
    bus.registerObject("/StatusNotifierWatcher", &watcher, parts);
    bus.registerObject(kNotificationsPath, &notifications, parts);
  }
  ~Services() {
    thread.quit();
    thread.wait();
    QDBusConnection::disconnectFromBus("services");
  }
  /// What `look` sees on the services' thread.
  template <typename Function>
  auto Look(Function look) -> decltype(look()) {
    decltype(look()) seen{};
    QMetaObject::invokeMethod(
        &watcher, [&] { seen = look(); }, Qt::BlockingQueuedConnection);
    return seen;
  }
  bool Shows() {
    return Look([this] { return !notifications.shown.isEmpty(); });
  }
  void ClickFrom(QDBusConnection sender) {
    auto click = QDBusMessage::createSignal(kNotificationsPath, kNotifications, "ActionInvoked");
    click.setArguments({41U, "default"});
    // After the answer to the call that showed it.
    Look([&] { return sender.send(click); });
  }
  /// Calls a method of the icon, and gives the answer as text.
  QString Call(const char* path, const char* method, const QVariantList& arguments) {
    auto call = QDBusMessage::createMethodCall(watcher.icon, path, {}, method);
    call.setArguments(arguments);
    QString text;
    // It is this very thread that answers.
    QDebug(&text) << bus.call(call, QDBus::BlockWithGui, 5000);
    return text;
  }

  QDBusConnection bus =
      QDBusConnection::connectToBus(qgetenv("DBUS_SESSION_BUS_ADDRESS"), "services");
  Notifications notifications;
  Watcher watcher;
  QThread thread;
};

}  // namespace kestrava::test
