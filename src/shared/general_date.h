#pragma once

#include <chrono>
#include <string>

namespace kestrava {

/// A date and time in the system's general date form: the short date, a blank, the long time, as
/// the LC_TIME locale of the process writes them (`%x %X` of strftime(3)).
std::string GeneralDateText(std::chrono::local_seconds moment);

}  // namespace kestrava
