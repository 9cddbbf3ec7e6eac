#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "platform/task.h"

namespace kestrava {

class Clock;
class ConnectionProbe;
class EventLoop;
class Form;
class MSFlexGrid;
struct RowBookmark;

/// One walk over the connection table: every row's address is tested and the outcome written into
/// that row. Events are delivered meanwhile, so rows may come and go; the pass keeps to the rows
/// that stood in the table when it began.
class CheckPass {
 public:
  /// @param window shows the busy pointer while a pass is under way.
  /// @param failedConnections gets the names of the rows that fail, and loses those of the pass
  /// before.
  CheckPass(MSFlexGrid& grid, ConnectionProbe& probe, EventLoop& eventLoop, const Clock& clock,
            Form& window, std::vector<std::string>& failedConnections)
      : grid_(grid),
        probe_(probe),
        eventLoop_(eventLoop),
        clock_(clock),
        window_(window),
        failedConnections_(failedConnections) {}

  /// A pass from its start to its end. Not to be run while another one is under way.
  Task<> Run();

 private:
  Task<> CheckRow(RowBookmark row);
  void WriteOnline(const std::string& answer);
  void WriteOffline(const std::string& answer);
  const std::string& NowText();

  MSFlexGrid& grid_;
  ConnectionProbe& probe_;
  EventLoop& eventLoop_;
  const Clock& clock_;
  Form& window_;
  std::vector<std::string>& failedConnections_;
  std::chrono::local_seconds textSecond_{};
  std::string text_;  ///< that second, as it stands in a cell
};

}  // namespace kestrava
