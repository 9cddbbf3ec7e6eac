#include "platform/qt/qt_event_loop.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <algorithm>

namespace kestrava {

namespace {

using std::chrono::steady_clock;

constexpr std::chrono::milliseconds kLongestRest(10);
constexpr std::chrono::microseconds kSparedFor(100);

constexpr auto kTurnEvent = QEvent::User;

}  // namespace

QtEventLoop::QtEventLoop() {
  restLimit_.setSingleShot(true);
  restLimit_.setTimerType(Qt::PreciseTimer);
  restLimit_.setInterval(kLongestRest);
  restLimit_.callOnTimeout(this, &QtEventLoop::FinishTurn);
}

void QtEventLoop::Watch(EventSource& source) {
  sources_.push_back(&source);
  auto* notifier = new QSocketNotifier(source.Descriptor(), QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this, &source] {
    const bool rests = restLimit_.isActive();
    source.Dispatch();
    if (rests) FinishTurn();
  });
}

void QtEventLoop::End() {
  ended_ = true;
  emit Ended();
}

bool QtEventLoop::event(QEvent* event) {
  if (event->type() != kTurnEvent) return QObject::event(event);
  FinishTurn();
  return true;
}

bool QtEventLoop::TurnIsSpared() {
  return !AnyUnderWay() && steady_clock::now() - lastTurn_ < kSparedFor;
}

void QtEventLoop::BeginTurn() {
  if (AnyUnderWay()) {
    restLimit_.start();
  } else {
    // It comes after what waits already, in this loop as well as in a modal wait of the toolkit's.
    QCoreApplication::postEvent(this, new QEvent(kTurnEvent), Qt::LowEventPriority);
  }
}

void QtEventLoop::FinishTurn() {
  restLimit_.stop();
  lastTurn_ = steady_clock::now();
  EndTurn();
}

bool QtEventLoop::AnyUnderWay() const {
  return std::ranges::any_of(sources_, &EventSource::UnderWay);
}

}  // namespace kestrava
