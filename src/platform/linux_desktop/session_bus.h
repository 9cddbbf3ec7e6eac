#pragma once

#include <QDBusConnection>
#include <QObject>
#include <chrono>
#include <optional>

#include "platform/linux/session_bus_probe.h"

namespace kestrava {

/// A service on the bus that hasn't answered after this time is taken for silent.
inline constexpr std::chrono::milliseconds kServicePatience = std::chrono::seconds(1);

/// For so long a late answer of its is still understood.
inline constexpr std::chrono::milliseconds kLatestAnswer = std::chrono::minutes(10);

/// What tells of desktops that show icons: names from the StatusNotifierItem document of
/// freedesktop.org, as the desktops have them.
inline constexpr const char* kStatusNotifierWatcher = "org.kde.StatusNotifierWatcher";
inline constexpr const char* kStatusNotifierWatcherPath = "/StatusNotifierWatcher";

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
