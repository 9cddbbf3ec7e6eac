#pragma once

#include <QObject>
#include <QTimer>
#include <vector>

#include "platform/event_loop.h"
#include "platform/linux/event_source.h"

class QAbstractEventDispatcher;

namespace kestrava {

/// The event loop of the application object, which must be there first.
class QtEventLoop final : public QObject, public EventLoop {
  Q_OBJECT

 public:
  QtEventLoop();

  [[nodiscard]] LoopState PumpEvents() override;

  /// Serves `source` from now on, from this loop and from any modal wait. It must outlive the loop.
  void Watch(EventSource& source);

  /// The main window is gone: ends every modal wait, and nothing is pumped any more.
  void End();
  bool HasEnded() const { return ended_; }

 signals:
  void Ended();

 private:
  /// @return whether there was an event.
  bool DeliverWaitingEvents();
  bool AttemptUnderWay() const;
  void RestForNextEvent();

  QAbstractEventDispatcher& dispatcher_;
  std::vector<EventSource*> sources_;
  QTimer restLimit_;
  bool ended_ = false;
};

}  // namespace kestrava
