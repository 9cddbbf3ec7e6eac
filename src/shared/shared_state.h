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
  /// The window is hidden and the icon in the notification area stands for it.
  bool InTray = false;
  /// A failing check pass raises a balloon while `InTray`. Stands for the whole run.
  bool ShowBalloons = false;
  /// What a click on the balloon does: empty for nothing, or "ShowMain".
  std::string BalloonAction;
  /// Address of the window procedure that the tray's own stands in front of; 0 for none.
  std::int32_t SavedWindowProc = 0;
  /// Names of the rows that failed in the latest check pass, in row order.
  std::vector<std::string> FailedConnections;
};

}  // namespace kestrava
