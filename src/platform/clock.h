#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace kestrava {

/// The local wall clock, and how its user writes what it shows.
class Clock {
 public:
  virtual ~Clock() = default;

  /// The present date and time of the user's time zone, in whole seconds.
  virtual std::chrono::local_seconds Now() const = 0;

  /// What it will show after so many real minutes, or has shown before them if `minutes` is
  /// negative. Where summer time begins or ends in between, that isn't the present reading and as
  /// many minutes.
  virtual std::chrono::local_seconds InMinutes(std::int32_t minutes) const = 0;

  /// A date and time in the system's general date form: the short date, a blank, the long time, as
  /// the user has chosen them.
  virtual std::string GeneralDateText(std::chrono::local_seconds moment) const = 0;
};

}  // namespace kestrava
