#include "platform/linux_desktop/tray/status_notifier_watch.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include "platform/linux_desktop/session_bus.h"

namespace kestrava {

namespace {

constexpr const char* kService = kStatusNotifierWatcher;
constexpr const char* kPath = kStatusNotifierWatcherPath;
constexpr const char* kHostProperty = "IsStatusNotifierHostRegistered";

}  // namespace

StatusNotifierWatch::StatusNotifierWatch() {
  patience_.setSingleShot(true);
  patience_.setInterval(kServicePatience);
  connect(&patience_, &QTimer::timeout, this, [this] { Become(Host::Silent); });

  QDBusConnection bus = SessionBus();
  if (!bus.isConnected()) {
    state_ = Host::Absent;
    return;
  }
  watcher_.emplace(bus, kService);
  connect(&*watcher_, &BusNameWatch::Taken, this, &StatusNotifierWatch::Ask);
  connect(&*watcher_, &BusNameWatch::Lost, this, &StatusNotifierWatch::BecomeAbsent);
  for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
    bus.connect({}, kPath, kService, signal, this, SLOT(Ask()));
  }
  Ask();
}

void StatusNotifierWatch::Ask() {
  QDBusMessage question =
      QDBusMessage::createMethodCall(kService, kPath, "org.freedesktop.DBus.Properties", "Get");
  question.setArguments({kService, kHostProperty});
  question.setAutoStartService(false);
  question_ = std::make_unique<QDBusPendingCallWatcher>(
      SessionBus().asyncCall(question, static_cast<int>(kLatestAnswer.count())));
  connect(question_.get(), &QDBusPendingCallWatcher::finished, this,
          [this](const QDBusPendingCallWatcher* call) { Take(*call); });
  patience_.start();
  Become(Host::Asking);
}

void StatusNotifierWatch::Take(const QDBusPendingCall& answer) {
  const QDBusPendingReply<QDBusVariant> reply = answer;
  patience_.stop();
  const bool present = reply.isValid() && reply.value().variant().toBool();
  Become(present ? Host::Present : Host::Absent);
}

void StatusNotifierWatch::BecomeAbsent() {
  question_.reset();
  patience_.stop();
  Become(Host::Absent);
}

void StatusNotifierWatch::Become(Host state) {
  if (state_ == state) return;
  state_ = state;
  emit Changed();
}

}  // namespace kestrava
