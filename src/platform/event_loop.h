#pragma once

namespace kestrava {

enum class LoopState {
  Running,
  Ending,  ///< the main window was unloaded: return to the event loop without writing anything
};

/// The one event loop of the one thread.
class EventLoop {
 public:
  virtual ~EventLoop() = default;

  /// One turn: delivers every waiting event to its handler and returns. While a Remote Desktop
  /// attempt is under way and no event waits, a turn rests for up to 10 ms for the next event;
  /// otherwise it doesn't rest. Gives `Ending`, and delivers nothing more, once the main window
  /// has been unloaded.
  [[nodiscard]] virtual LoopState PumpEvents() = 0;
};

}  // namespace kestrava
