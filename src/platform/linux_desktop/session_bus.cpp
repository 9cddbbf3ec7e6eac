#include "platform/linux_desktop/session_bus.h"

#include <QByteArray>
#include <QSocketNotifier>
#include <chrono>

namespace kestrava {

namespace {

using namespace std::chrono_literals;

constexpr const char* kVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr const char* kNowhere = "unix:path=/nonexistent";
constexpr const char* kLateConnection = "late session bus";

/// What the toolkit asks and waits for, in Qt 6.4: the assistive technologies, a global menu bar, a
/// tray.
constexpr const char* kServices[] = {"org.a11y.Bus", "com.canonical.AppMenu.Registrar",
                                     kStatusNotifierWatcher};

/// A bus at work answers within a millisecond, on a machine that is starting up within some
/// hundred.
constexpr std::chrono::milliseconds kPatience = 700ms;

/// The address of the bus that was withheld. Like the environment, it is one for the process.
std::optional<QByteArray>& Withheld() {
  static std::optional<QByteArray> address;
  return address;
}

}  // namespace

void WithholdSilentSessionBus() {
  const QByteArray address = qgetenv(kVariable);
  using Bus = SessionBusProbe::Bus;
  const Bus bus = SessionBusProbe(address.toStdString(), kServices).AnswersIn(kPatience);
  if (bus != Bus::Asked && bus != Bus::Full) return;
  Withheld() = address;
  qputenv(kVariable, kNowhere);
}

QDBusConnection SessionBus() {
  const QDBusConnection late(kLateConnection);
  return late.isConnected() ? late : QDBusConnection::sessionBus();
}

LateSessionBus::LateSessionBus() {
  // The toolkit looks once, and remembers that it has found nothing.
  if (!Withheld() || QDBusConnection::sessionBus().isConnected()) return;
  if (Withheld()->isEmpty()) *Withheld() = "unix:path=" + qgetenv("XDG_RUNTIME_DIR") + "/bus";
  qputenv(kVariable, *Withheld());
  probe_.emplace(Withheld()->toStdString());
  if (probe_->State() != SessionBusProbe::Bus::Asked) return;
  auto* notifier = new QSocketNotifier(probe_->Descriptor(), QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
    if (probe_->Read() == SessionBusProbe::Bus::Asked) return;
    notifier->setEnabled(false);
    TakeAnswer();
  });
}

void LateSessionBus::TakeAnswer() {
  if (probe_->State() != SessionBusProbe::Bus::Answers) return;
  // By its address: the library below the toolkit remembers where the session bus was.
  const auto bus = QDBusConnection::connectToBus(QString::fromUtf8(*Withheld()), kLateConnection);
  if (bus.isConnected()) emit Came();
}

}  // namespace kestrava
