#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>

#include "platform/timer.h"

namespace kestrava {

/// Makes one timer of a form tick, until it is destroyed.
class NativeTimer final : public QObject {
  Q_OBJECT

 public:
  NativeTimer(Timer& timer, QObject* parent);

 private:
  void Follow();
  void StartUntilDue();
  void Raise();

  Timer& timer_;
  Observation<> observation_;
  QTimer wait_;
  std::chrono::milliseconds interval_{};
  std::chrono::steady_clock::time_point due_;  ///< of the next tick
};

}  // namespace kestrava
