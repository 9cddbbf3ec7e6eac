#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

namespace kestrava {

/// Tells when a name on the session bus gets an owner or loses it. Unlike the toolkit's own class
/// for this it never waits for the bus.
class BusNameWatch final : public QObject {
  Q_OBJECT

 public:
  /// Does nothing where `bus` isn't connected.
  BusNameWatch(QDBusConnection bus, const QString& name);

 signals:
  void Taken();
  void Lost();

 private slots:
  void TakeChange(const QString& name, const QString& before, const QString& now,
                  const QDBusMessage& signal);
  void TakeEndOfBus() { emit Lost(); }
};

}  // namespace kestrava
