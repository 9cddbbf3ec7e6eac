#pragma once

#include <string>
#include <vector>

namespace kestrava {

/// What the parts of the program share beside the table. `frmMain` owns the one copy.
struct SharedState {
  /// Full path of the list file loaded or saved last; empty if there is none.
  std::string LastListFile;

  /// Names of the rows that failed in the latest check pass, in row order.
  std::vector<std::string> FailedConnections;
};

}  // namespace kestrava
