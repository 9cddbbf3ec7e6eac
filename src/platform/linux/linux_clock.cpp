#include "platform/linux/linux_clock.h"

#include <array>

namespace kestrava {

std::chrono::local_seconds LocalTimeAt(std::time_t moment) {
  std::tm parts{};
  tzset();
  localtime_r(&moment, &parts);
  return std::chrono::local_seconds(std::chrono::seconds(moment + parts.tm_gmtoff));
}

std::chrono::local_seconds LinuxClock::Now() const {
  const std::time_t second = std::time(nullptr);
  if (second != second_) {
    second_ = second;
    local_ = LocalTimeAt(second);
  }
  return local_;
}

std::chrono::local_seconds LinuxClock::InMinutes(std::int32_t minutes) const {
  constexpr std::time_t kSecondsPerMinute = 60;
  return LocalTimeAt(std::time(nullptr) + kSecondsPerMinute * minutes);
}

std::string LinuxClock::GeneralDateText(std::chrono::local_seconds moment) const {
  const std::time_t seconds = moment.time_since_epoch().count();
  std::tm parts{};
  gmtime_r(&seconds, &parts);
  // The zone is no part of it, nor whether it is summer time.
  parts.tm_zone = nullptr;
  parts.tm_isdst = -1;
  std::array<char, 256> text;
  return {text.data(), std::strftime(text.data(), text.size(), "%x %X", &parts)};
}

}  // namespace kestrava
