#pragma once

#include <QDBusConnection>
#include <QObject>
#include <optional>

#include "platform/linux/session_bus_probe.h"

namespace kestrava {

/// Keeps the toolkit away from a session bus that doesn't answer, or on which a service doesn't
/// that the toolkit waits for at its start. To be called before the application object is made.
void WithholdSilentSessionBus();

/// The session bus: the toolkit's connection, or one of our own to a bus that answered late. It may
/// be without connection.
QDBusConnection SessionBus();

/// Waits for an answer of a bus that was withheld, without holding anything up. Programs that are
/// started from now on are told of that bus again. One of these is enough.
class LateSessionBus final : public QObject {
  Q_OBJECT

 public:
  LateSessionBus();

 signals:
  /// `SessionBus` is connected now.
  void Came();

 private:
  void TakeAnswer();

  std::optional<SessionBusProbe> probe_;
};

}  // namespace kestrava
