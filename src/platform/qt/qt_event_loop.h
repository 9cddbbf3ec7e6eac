#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>
#include <vector>

#include "platform/event_loop.h"

namespace kestrava {

/// Something outside the toolkit that an event loop serves.
struct WatchedSource {
  /// A file descriptor that polls readable whenever `dispatch` has something to do.
  int descriptor;
  /// Does what waits, without blocking. It doesn't throw.
  std::function<void()> dispatch;
  /// Whether somebody waits for it by pumping events, so that an idle turn of the loop may rest.
  std::function<bool()> underWay;
};

/// The event loop of the application object, which must be there first.
class QtEventLoop final : public QObject, public EventLoop {
  Q_OBJECT

 public:
  QtEventLoop();

  /// Serves `source` from now on, from this loop and from any modal wait. What it refers to must
  /// outlive the loop.
  void Watch(WatchedSource source);

  /// The main window is gone: ends every modal wait.
  void End();
  bool HasEnded() const { return ended_; }

 signals:
  void Ended();

 protected:
  bool event(QEvent* event) override;

 private:
  bool TurnIsSpared() override;
  void BeginTurn() override;
  void FinishTurn();
  bool AnyUnderWay() const;

  std::vector<std::function<bool()>> underWay_;  ///< of each source
  QTimer restLimit_;                             ///< runs while a turn rests
  std::chrono::steady_clock::time_point lastTurn_;
  bool ended_ = false;
};

}  // namespace kestrava
