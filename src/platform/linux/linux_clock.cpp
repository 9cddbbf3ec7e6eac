#include "platform/linux/linux_clock.h"

namespace kestrava {

std::chrono::local_seconds LinuxClock::Now() const {
  const std::time_t second = std::time(nullptr);
  if (second != second_) {
    std::tm parts{};
    tzset();
    localtime_r(&second, &parts);
    second_ = second;
    local_ = std::chrono::local_seconds(std::chrono::seconds(second + parts.tm_gmtoff));
  }
  return local_;
}

}  // namespace kestrava
