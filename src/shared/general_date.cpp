#include "shared/general_date.h"

#include <array>
#include <ctime>

namespace kestrava {

std::string GeneralDateText(std::chrono::local_seconds moment) {
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  const auto newYear = std::chrono::local_days(date.year() / std::chrono::January / 1);

  std::tm fields{};
  fields.tm_year = static_cast<int>(date.year()) - 1900;
  fields.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
  fields.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
  fields.tm_wday = static_cast<int>(std::chrono::weekday(day).c_encoding());
  fields.tm_yday = static_cast<int>((day - newYear).count());
  fields.tm_hour = static_cast<int>(time.hours().count());
  fields.tm_min = static_cast<int>(time.minutes().count());
  fields.tm_sec = static_cast<int>(time.seconds().count());
  fields.tm_isdst = -1;

  std::array<char, 256> text;
  return {text.data(), std::strftime(text.data(), text.size(), "%x %X", &fields)};
}

}  // namespace kestrava
