#pragma once

#include <cstdint>
#include <string>

namespace kestrava {

class Clock;

/// When the next timed check pass is due: a reading of the clock, with no date.
class CheckSchedule {
 public:
  /// @param checkInterval minutes from one timed pass to the next.
  /// @param nextCheckTime the due minute, "hh:mm".
  CheckSchedule(const Clock& clock, std::int32_t& checkInterval, std::string& nextCheckTime)
      : clock_(clock), checkInterval_(checkInterval), nextCheckTime_(nextCheckTime) {}

  /// Makes `minutes` the check interval, and the next pass due so many minutes from now. Any number
  /// will do; only the clock reading at the end of the interval counts.
  void SetInterval(std::int32_t minutes);

  /// The clock shows the due minute.
  bool IsDue() const;

  /// Makes the next pass due one check interval from now.
  void SetNextCheckTime();

 private:
  const Clock& clock_;
  std::int32_t& checkInterval_;
  std::string& nextCheckTime_;
};

}  // namespace kestrava
