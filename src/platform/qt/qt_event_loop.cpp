#include "platform/qt/qt_event_loop.h"

#include <QAbstractEventDispatcher>
#include <QSocketNotifier>
#include <algorithm>
#include <chrono>

namespace kestrava {

namespace {

constexpr std::chrono::milliseconds kLongestRest(10);

/// Events that keep bringing forth new ones must not hold a turn for ever.
constexpr int kMostRounds = 16;

}  // namespace

QtEventLoop::QtEventLoop() : dispatcher_(*QAbstractEventDispatcher::instance()) {
  restLimit_.setSingleShot(true);
  restLimit_.setTimerType(Qt::PreciseTimer);
  restLimit_.setInterval(kLongestRest);
}

LoopState QtEventLoop::PumpEvents() {
  if (ended_) return LoopState::Ending;
  if (!DeliverWaitingEvents() && AttemptUnderWay()) RestForNextEvent();
  return ended_ ? LoopState::Ending : LoopState::Running;
}

void QtEventLoop::Watch(EventSource& source) {
  sources_.push_back(&source);
  auto* notifier = new QSocketNotifier(source.Descriptor(), QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [&source] { source.Dispatch(); });
}

void QtEventLoop::End() {
  ended_ = true;
  emit Ended();
}

bool QtEventLoop::DeliverWaitingEvents() {
  int round = 0;
  while (round < kMostRounds && !ended_ && dispatcher_.processEvents(QEventLoop::AllEvents)) {
    ++round;
  }
  return round > 0;
}

bool QtEventLoop::AttemptUnderWay() const {
  return std::ranges::any_of(sources_, &EventSource::UnderWay);
}

void QtEventLoop::RestForNextEvent() {
  restLimit_.start();
  dispatcher_.processEvents(QEventLoop::WaitForMoreEvents);
  restLimit_.stop();
}

}  // namespace kestrava
