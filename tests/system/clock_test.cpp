#include <cstdlib>
#include <gtest/gtest.h>

#include "platform/linux/linux_clock.h"

namespace kestrava::test {

using namespace std::chrono;
using namespace std::chrono_literals;

TEST(Clock, ReadsTheLocalTimeOnEitherSideOfSummerTime) {
  constexpr auto kCentralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";
  constexpr auto kLordHowe = "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0";  // half an hour of it
  const struct {
    const char* zone;
    sys_seconds moment;
    local_seconds reading;
  } cases[] = {
      {kCentralEurope, sys_days(2026y / 3 / 29) + 59min, local_days(2026y / 3 / 29) + 1h + 59min},
      {kCentralEurope, sys_days(2026y / 3 / 29) + 1h, local_days(2026y / 3 / 29) + 3h},
      {kCentralEurope, sys_days(2026y / 10 / 25) + 59min, local_days(2026y / 10 / 25) + 2h + 59min},
      {kCentralEurope, sys_days(2026y / 10 / 25) + 61min, local_days(2026y / 10 / 25) + 2h + 1min},
      {kLordHowe, sys_days(2026y / 10 / 3) + 15h + 29min, local_days(2026y / 10 / 4) + 1h + 59min},
      {kLordHowe, sys_days(2026y / 10 / 3) + 15h + 30min, local_days(2026y / 10 / 4) + 2h + 30min},
  };
  for (const auto& [zone, moment, reading] : cases) {
    setenv("TZ", zone, 1);
    EXPECT_EQ(LocalTimeAt(system_clock::to_time_t(moment)), reading) << zone;
  }
  unsetenv("TZ");
  const LinuxClock clock;
  EXPECT_EQ(clock.GeneralDateText(local_days(2026y / 3 / 9) + 14h + 1s), "03/09/26 14:00:01");
  for (const std::int32_t minutes : {-1, 0, 100000}) {
    const auto before = LocalTimeAt(std::time(nullptr) + 60 * std::time_t{minutes});
    const auto reading = clock.InMinutes(minutes);
    EXPECT_TRUE(before <= reading && reading <= LocalTimeAt(std::time(nullptr) + 60 * minutes));
  }
}

}  // namespace kestrava::test
