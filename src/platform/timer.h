#pragma once

#include "platform/event.h"

namespace kestrava {

class Form;

/// One line of a window's table of timers.
struct TimerSpec {
  const char* name;
  int interval;  ///< in milliseconds
  bool enabled;  ///< running when the window is loaded
};

/// Raises `Tick` every so often, while it is enabled and its form is loaded, wherever events are
/// delivered: in modal waits and `PumpEvents` too, and with the window hidden. The next tick is
/// counted from the time at which the last one was due, so late ticks don't add up. A tick that the
/// program had no chance to serve in time comes once.
class Timer : public Observable {
 public:
  /// Takes the line called `name` from the timer table of `form` and joins the form.
  /// @throws RuntimeError (5) if the table has no such line.
  Timer(Form& form, const char* name);

  const TimerSpec& Spec() const { return spec_; }

  /// In milliseconds.
  int Interval() const { return interval_; }
  void SetInterval(int milliseconds) { Change(interval_, milliseconds); }

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { Change(enabled_, enabled); }

  Event Tick;

 private:
  const TimerSpec& spec_;
  int interval_;
  bool enabled_;
};

}  // namespace kestrava
