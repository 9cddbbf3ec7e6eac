#include "shared/check_schedule.h"

#include <chrono>
#include <string>

#include "platform/clock.h"

namespace kestrava {

namespace {

std::string TwoDigits(std::chrono::hours::rep number) {
  return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

/// The 24-hour clock as "hh:mm".
std::string ClockText(std::chrono::local_seconds moment) {
  const std::chrono::hh_mm_ss time(moment - std::chrono::floor<std::chrono::days>(moment));
  return TwoDigits(time.hours().count()) + ":" + TwoDigits(time.minutes().count());
}

}  // namespace

void CheckSchedule::SetInterval(std::int32_t minutes) {
  checkInterval_ = minutes;
  SetNextCheckTime();
}

bool CheckSchedule::IsDue() const { return ClockText(clock_.Now()) == nextCheckTime_; }

void CheckSchedule::SetNextCheckTime() {
  nextCheckTime_ = ClockText(clock_.InMinutes(checkInterval_));
}

}  // namespace kestrava
