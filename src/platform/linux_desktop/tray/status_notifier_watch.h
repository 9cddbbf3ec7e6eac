#pragma once

#include <QDBusPendingCallWatcher>
#include <QObject>
#include <QTimer>
#include <memory>
#include <optional>

#include "platform/linux_desktop/tray/bus_name_watch.h"

namespace kestrava {

/// Tells whether a desktop shows StatusNotifierItem icons, and tells when that changes. It never
/// waits for anybody.
class StatusNotifierWatch final : public QObject {
  Q_OBJECT

 public:
  enum class Host {
    Asking,  ///< the answer is on its way
    Present,
    Absent,  ///< also without a session bus
    Silent,  ///< the watcher is there and doesn't answer: nothing must wait for it
  };

  StatusNotifierWatch();

  Host State() const { return state_; }

 signals:
  void Changed();

 private slots:
  void Ask();
  void BecomeAbsent();

 private:
  void Take(const QDBusPendingCall& answer);
  void Become(Host state);

  std::optional<BusNameWatch> watcher_;
  std::unique_ptr<QDBusPendingCallWatcher> question_;
  QTimer patience_;
  Host state_ = Host::Asking;
};

}  // namespace kestrava
