#include "platform/win32/native_timer.h"

namespace kestrava {

using std::chrono::ceil;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

NativeTimer::NativeTimer(Timer& timer, HWND window, UINT_PTR id)
    : timer_(timer), window_(window), id_(id) {
  observation_ = timer_.Observe([this] { Follow(); });
  Follow();
}

NativeTimer::~NativeTimer() { KillTimer(window_, id_); }

void NativeTimer::TakeEnd() {
  if (!waits_) return;
  const auto now = steady_clock::now();
  // The system's clock for timers is coarse.
  if (now < due_) return WaitUntilDue();
  // Counted from the time at which this tick was due; a tick that was missed altogether is gone.
  do {
    due_ += interval_;
  } while (due_ <= now);
  // Runs already while the handler does, which may wait in a dialog for a long time.
  WaitUntilDue();
  timer_.Tick.Raise();
}

void NativeTimer::Follow() {
  const milliseconds interval(timer_.Interval());
  if (!timer_.Enabled()) {
    waits_ = false;
    KillTimer(window_, id_);
  } else if (!waits_ || interval != interval_) {
    waits_ = true;
    interval_ = interval;
    due_ = steady_clock::now() + interval_;
    WaitUntilDue();
  }
}

void NativeTimer::WaitUntilDue() {
  SetTimer(window_, id_, static_cast<UINT>(ceil<milliseconds>(due_ - steady_clock::now()).count()),
           nullptr);
}

}  // namespace kestrava
