#include "platform/linux_desktop/tray/bus_name_watch.h"

#include <QDBusMessage>

namespace kestrava {

namespace {

// From the D-Bus document of freedesktop.org.
constexpr const char* kBus = "org.freedesktop.DBus";
constexpr const char* kBusPath = "/org/freedesktop/DBus";

}  // namespace

BusNameWatch::BusNameWatch(QDBusConnection bus, const QString& name) {
  // With the sender's name given, the toolkit would ask the bus for its owner, and wait.
  bus.connect({}, kBusPath, kBus, "NameOwnerChanged", {name}, {}, this,
              SLOT(TakeChange(QString, QString, QString, QDBusMessage)));
  // The connection itself sends this one.
  bus.connect({}, "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local", "Disconnected", this,
              SLOT(TakeEndOfBus()));
}

void BusNameWatch::TakeChange(const QString&, const QString&, const QString& now,
                              const QDBusMessage& signal) {
  if (signal.service() != kBus) return;
  if (now.isEmpty()) {
    emit Lost();
  } else {
    emit Taken();
  }
}

}  // namespace kestrava
