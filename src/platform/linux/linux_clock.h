#pragma once

#include <ctime>

#include "platform/clock.h"

namespace kestrava {

/// The local date and time at a moment of the system's clock, in the user's time zone (TZ, else
/// /etc/localtime).
std::chrono::local_seconds LocalTimeAt(std::time_t moment);

/// The system's clock in the user's time zone. A change of the zone is seen within a second.
class LinuxClock final : public Clock {
 public:
  std::chrono::local_seconds Now() const override;
  std::chrono::local_seconds InMinutes(std::int32_t minutes) const override;
  /// As the LC_TIME locale of the process writes them (`%x %X` of strftime(3)).
  std::string GeneralDateText(std::chrono::local_seconds moment) const override;

 private:
  /// The last answer, since a pass asks once for each row and the zone costs system calls.
  mutable std::time_t second_ = -1;
  mutable std::chrono::local_seconds local_;
};

}  // namespace kestrava
