#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDebug>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

namespace kestrava::test {

/// A program that runs until the test ends.
struct Program : QProcess {
  Program() = default;
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

/// A session bus of the test's own. It starts nothing, so that only the test's services are on it.
struct Bus {
  Bus() {
    QFile config(folder.filePath("bus.conf"));
    if (!config.open(QIODevice::WriteOnly)) return;
    config.write(R"(<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen>
        <policy context="default"><allow send_destination="*"/><allow receive_sender="*"/>
        <allow own="*"/></policy>
        </busconfig>)");
    config.close();
    daemon.start("dbus-daemon",
                 {"--nofork", "--print-address", "--config-file=" + config.fileName()});
    qputenv("DBUS_SESSION_BUS_ADDRESS", daemon.FirstLine());
  }
  QTemporaryDir folder;
  Program daemon;
};

/// A notification service, and how it behaves.
class Notifications : public QObject, public QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

 public:
  QStringList capabilities{"actions", "body-markup"};
  QString silentAt;   ///< the call that it doesn't answer
  QString shown;      ///< what was asked for last; empty while nothing is up
  QDBusMessage late;  ///< the call that it has not answered

 public slots:
  QStringList GetCapabilities() {
    setDelayedReply(silentAt == "GetCapabilities");
    return capabilities;
  }
  uint Notify(const QString&, uint, const QString&, const QString& title, const QString& body,
              const QStringList& actions, const QVariantMap&, int) {
    late = message();
    setDelayedReply(silentAt == "Notify");
    shown = actions.value(0) + ": " + title + ": " + body;
    return 41;
  }
  void CloseNotification(uint id) {
    if (id == 41) shown.clear();
  }
};

/// A watcher for StatusNotifierItem icons, with a host.
class Watcher : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
  Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER hasHost)

 public:
  bool hasHost = true;
  QStringList items;  ///< bus names of the icons that registered

 public slots:
  void RegisterStatusNotifierItem(const QString& item) { items.push_back(item); }
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
    Look([this] {
      const auto parts = QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties;
      bus.registerObject("/StatusNotifierWatcher", &watcher, parts);
      return bus.registerObject(kNotificationsPath, &notifications, parts);
    });
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
  QString Shown() {
    return Look([this] { return notifications.shown; });
  }
  void Click() {
    QDBusMessage click =
        QDBusMessage::createSignal(kNotificationsPath, kNotifications, "ActionInvoked");
    click.setArguments({41U, "default"});
    // Behind the answer to the call that showed it.
    Look([&] { return bus.send(click); });
  }
  /// Calls a method of the icon that registered last, and gives the answer as text.
  QString Call(const char* path, const char* method, const QVariantList& arguments) {
    auto call = QDBusMessage::createMethodCall(watcher.items.back(), path, {}, method);
    call.setArguments(arguments);
    QString text;
    // It is this very thread that answers.
    QDebug(&text) << bus.call(call, QDBus::BlockWithGui, 5000);
    return text;
  }

  QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "services");
  Notifications notifications;
  Watcher watcher;
  QThread thread;
};

}  // namespace kestrava::test
