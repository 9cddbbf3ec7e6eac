#include "platform/win32/win32_clock.h"

#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr std::int64_t kTicksPerMinute = 60 * 10'000'000LL;  // of 100 ns, as FILETIME counts

std::chrono::local_seconds AsLocal(const SYSTEMTIME& time) {
  using namespace std::chrono;
  const local_days day(year(time.wYear) / month(time.wMonth) / std::chrono::day(time.wDay));
  return day + hours(time.wHour) + minutes(time.wMinute) + seconds(time.wSecond);
}

}  // namespace

std::chrono::local_seconds Win32Clock::InMinutes(std::int32_t minutes) const {
  FILETIME moment{};
  GetSystemTimeAsFileTime(&moment);
  ULARGE_INTEGER ticks{};
  ticks.LowPart = moment.dwLowDateTime;
  ticks.HighPart = moment.dwHighDateTime;
  ticks.QuadPart += static_cast<ULONGLONG>(minutes * kTicksPerMinute);
  moment.dwLowDateTime = ticks.LowPart;
  moment.dwHighDateTime = ticks.HighPart;
  SYSTEMTIME world{};
  SYSTEMTIME local{};
  FileTimeToSystemTime(&moment, &world);
  // A zone that can't be told leaves the time of the world.
  if (!SystemTimeToTzSpecificLocalTime(nullptr, &world, &local)) local = world;
  return AsLocal(local);
}

}  // namespace kestrava
