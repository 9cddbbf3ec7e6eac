#pragma once

#include <chrono>
#include <coroutine>
#include <vector>

namespace kestrava {

/// The one event loop of the one thread.
class EventLoop {
 public:
  class Turn;

  virtual ~EventLoop() = default;

  /// `co_await PumpEvents()` gives the loop one turn: every waiting event is delivered to its
  /// handler, and then the work goes on.
  ///
  /// A turn that begins sooner than `kSparedFor` after the end of the last one finds nothing that a
  /// person could miss, and may return at once. While an echo or a Remote Desktop attempt is under
  /// way, a turn rests until something comes of that, for `kLongestRest` at most; otherwise it
  /// doesn't rest.
  Turn PumpEvents();

 protected:
  static constexpr std::chrono::microseconds kSparedFor{100};
  static constexpr std::chrono::milliseconds kLongestRest{10};

  /// To be called by the desktop when a turn has ended: all that waited for it goes on.
  void EndTurn();

 private:
  /// Whether a turn that begins now returns at once.
  virtual bool TurnIsSpared() = 0;
  /// Work waits for a turn: `EndTurn` is to be called at its end.
  virtual void BeginTurn() = 0;

  std::vector<Turn*> waiting_;  ///< for the turn that has begun
  std::vector<Turn*> ended_;    ///< whose turn has ended, and whose work is about to go on
};

/// What `PumpEvents` gives, to be awaited at once.
class [[nodiscard]] EventLoop::Turn {
 public:
  explicit Turn(EventLoop& loop) : loop_(loop) {}
  /// Work that is dropped in the midst of a turn isn't waited for any more.
  ~Turn();
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

  bool await_ready() const { return loop_.TurnIsSpared(); }
  void await_suspend(std::coroutine_handle<> work);
  void await_resume() const noexcept {}

 private:
  friend EventLoop;

  EventLoop& loop_;
  std::coroutine_handle<> work_;  ///< set while it waits
};

inline EventLoop::Turn EventLoop::PumpEvents() { return Turn(*this); }

}  // namespace kestrava
