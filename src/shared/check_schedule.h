#pragma once

#include <cstdint>

namespace kestrava {

class Clock;
struct SharedState;

/// When the next timed check pass is due: a reading of the clock, with no date.
class CheckSchedule {
 public:
  CheckSchedule(const Clock& clock, SharedState& state) : clock_(clock), state_(state) {}

  /// Makes `minutes` the check interval, and the next pass due so many minutes from now. Any number
  /// will do; only the clock reading at the end of the interval counts.
  void SetInterval(std::int32_t minutes);

  /// The clock shows the due minute.
  bool IsDue() const;

  /// Makes the next pass due one check interval from now.
  void SetNextCheckTime();

 private:
  const Clock& clock_;
  SharedState& state_;
};

}  // namespace kestrava
