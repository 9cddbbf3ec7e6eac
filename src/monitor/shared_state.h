#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kestrava {

/// What the parts of the program share beside the table. `frmMain` owns the one copy.
struct SharedState {
  /// Full path of the list file loaded or saved last; empty if there is none.
  std::string LastListFile;
  /// Minutes from one timed check pass to the next.
  std::int32_t CheckInterval = 0;
  /// The clock minute of the next timed check pass, "hh:mm".
  std::string NextCheckTime;
  /// Names of the rows that failed in the latest check pass, in row order.
  std::vector<std::string> FailedConnections;
};

}  // namespace kestrava
