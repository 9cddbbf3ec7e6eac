#include "platform/win32/win32_clock.h"

#include <array>

#include "platform/win32/wide_text.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr std::int64_t kTicksPerMinute = 60 * 10'000'000LL;  // of 100 ns, as FILETIME counts

std::chrono::local_seconds AsLocal(const SYSTEMTIME& time) {
  using namespace std::chrono;
  const local_days day(year(time.wYear) / month(time.wMonth) / std::chrono::day(time.wDay));
  return day + hours(time.wHour) + minutes(time.wMinute) + seconds(time.wSecond);
}

SYSTEMTIME PartsOf(std::chrono::local_seconds moment) {
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  SYSTEMTIME parts{};
  parts.wYear = static_cast<WORD>(static_cast<int>(date.year()));
  parts.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
  parts.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
  parts.wHour = static_cast<WORD>(time.hours().count());
  parts.wMinute = static_cast<WORD>(time.minutes().count());
  parts.wSecond = static_cast<WORD>(time.seconds().count());
  return parts;
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

std::string Win32Clock::GeneralDateText(std::chrono::local_seconds moment) const {
  const SYSTEMTIME parts = PartsOf(moment);
  constexpr int kRoom = 256;
  std::array<wchar_t, kRoom> date{};
  std::array<wchar_t, kRoom> time{};
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &parts, nullptr, date.data(), kRoom,
                  nullptr);
  GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &parts, nullptr, time.data(), kRoom);
  return ToBytes(date.data()) + ' ' + ToBytes(time.data());
}

}  // namespace kestrava
