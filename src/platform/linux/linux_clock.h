#pragma once

#include <ctime>

#include "platform/clock.h"

namespace kestrava {

/// The system's clock in the user's time zone. A change of the zone is seen within a second.
class LinuxClock final : public Clock {
 public:
  std::chrono::local_seconds Now() const override;

 private:
  /// The last answer, since a pass asks once for each row and the zone costs system calls.
  mutable std::time_t second_ = -1;
  mutable std::chrono::local_seconds local_;
};

}  // namespace kestrava
