#include "platform/qt/qt_event_loop.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <algorithm>
#include <utility>

namespace kestrava {

namespace {

using std::chrono::steady_clock;

constexpr auto kTurnEvent = QEvent::User;

}  // namespace

QtEventLoop::QtEventLoop() {
  restLimit_.setSingleShot(true);
  restLimit_.setTimerType(Qt::PreciseTimer);
  restLimit_.setInterval(kLongestRest);
  restLimit_.callOnTimeout(this, &QtEventLoop::FinishTurn);
}

void QtEventLoop::Watch(WatchedSource source) {
  underWay_.push_back(std::move(source.underWay));
  auto* notifier = new QSocketNotifier(source.descriptor, QSocketNotifier::Read, this);
  const auto serve = [this, dispatch = std::move(source.dispatch)] {
    const bool rests = restLimit_.isActive();
    dispatch();
    if (rests) FinishTurn();
  };
  connect(notifier, &QSocketNotifier::activated, this, serve);
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
  return std::ranges::any_of(underWay_, [](const auto& underWay) { return underWay(); });
}

}  // namespace kestrava
