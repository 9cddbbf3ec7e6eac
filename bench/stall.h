#pragma once

#include <string>
#include <vector>

namespace kestrava {

/// The longest time in seconds for which an event waits during a pass over these silent machines.
double LongestStall(const std::vector<std::string>& addresses);

}  // namespace kestrava
