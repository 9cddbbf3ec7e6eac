#include "platform/qt/native_timer.h"

namespace kestrava {

using std::chrono::ceil;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

NativeTimer::NativeTimer(Timer& timer, QObject* parent) : QObject(parent), timer_(timer) {
  wait_.setSingleShot(true);
  wait_.setTimerType(Qt::PreciseTimer);
  connect(&wait_, &QTimer::timeout, this, &NativeTimer::Raise);
  observation_ = timer_.Observe([this] { Follow(); });
  Follow();
}

void NativeTimer::Follow() {
  const milliseconds interval(timer_.Interval());
  if (!timer_.Enabled()) {
    wait_.stop();
  } else if (!wait_.isActive() || interval != interval_) {
    interval_ = interval;
    due_ = steady_clock::now() + interval_;
    StartUntilDue();
  }
}

void NativeTimer::StartUntilDue() { wait_.start(ceil<milliseconds>(due_ - steady_clock::now())); }

void NativeTimer::Raise() {
  // Counted from the time at which this tick was due; a tick that was missed altogether is gone.
  do {
    due_ += interval_;
  } while (due_ <= steady_clock::now());
  // Runs already while the handler does, which may pump events for a long time.
  StartUntilDue();
  timer_.Tick.Raise();
}

}  // namespace kestrava
