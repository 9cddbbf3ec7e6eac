#pragma once

#include <chrono>

namespace kestrava {

/// The local wall clock.
class Clock {
 public:
  virtual ~Clock() = default;

  /// The present date and time of the user's time zone, in whole seconds.
  virtual std::chrono::local_seconds Now() const = 0;
};

}  // namespace kestrava
