#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <vector>

#include "platform/event_loop.h"
#include "platform/linux/event_source.h"

namespace kestrava {

/// The event loop of the application object, which must be there first.
class QtEventLoop final : public QObject, public EventLoop {
  Q_OBJECT

 public:
  QtEventLoop();

  /// Serves `source` from now on, from this loop and from any modal wait. It must outlive the loop.
  void Watch(EventSource& source);

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

  std::vector<EventSource*> sources_;
  QTimer restLimit_;  ///< runs while a turn rests
  std::chrono::steady_clock::time_point lastTurn_;
  bool ended_ = false;
};

}  // namespace kestrava
