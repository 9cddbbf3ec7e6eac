#pragma once

#include <chrono>
#include <string>

namespace kestrava {

class Clock;
class ConnectionProbe;
class EventLoop;
class Form;
class MSFlexGrid;
struct RowBookmark;
struct SharedState;
enum class LoopState;

/// How a pass ended.
enum class PassResult {
  Completed,
  NotRun,  ///< another pass is under way, or the program is ending
};

/// One walk over the connection table: every row's address is tested and the outcome written into
/// that row. Events are delivered meanwhile, so rows may come and go; the pass keeps to the rows
/// that stood in the table when it began.
class CheckPass {
 public:
  /// @param window shows the busy pointer while a pass is under way.
  CheckPass(MSFlexGrid& grid, ConnectionProbe& probe, EventLoop& eventLoop, const Clock& clock,
            Form& window, SharedState& state)
      : grid_(grid),
        probe_(probe),
        eventLoop_(eventLoop),
        clock_(clock),
        window_(window),
        state_(state) {}

  /// Runs a pass to its end, unless one is under way already.
  PassResult Run();

 private:
  LoopState CheckRow(RowBookmark row);
  void WriteOnline(const std::string& answer);
  void WriteOffline(const std::string& answer);
  const std::string& NowText();

  MSFlexGrid& grid_;
  ConnectionProbe& probe_;
  EventLoop& eventLoop_;
  const Clock& clock_;
  Form& window_;
  SharedState& state_;
  bool running_ = false;
  std::chrono::local_seconds textSecond_{};
  std::string text_;  ///< that second, as it stands in a cell
};

}  // namespace kestrava
