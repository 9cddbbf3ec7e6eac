#pragma once

#include <chrono>
#include <functional>
#include <utility>
#include <vector>

#include "platform/event_loop.h"
#include "platform/win32/message_window.h"

namespace kestrava {

/// The thread's message loop. Whatever ends a turn comes as a message to a window of its own that
/// is never shown, and so is served inside the system's own modal waits, too.
class Win32EventLoop final : public EventLoop {
 public:
  /// @throws std::system_error if the system has no window left for it.
  Win32EventLoop();

  /// `isUnderWay` says whether an echo or an attempt of its kind is under way, so that a turn
  /// rests.
  void Watch(std::function<bool()> isUnderWay) { watched_.push_back(std::move(isUnderWay)); }

  /// Something came of what is under way: a turn that rests ends now.
  void EndRest();
  /// Whether a turn rests.
  bool Rests() const { return rests_; }
  /// No message waits any more: a turn that only lets the waiting ones through ends now. To be
  /// called ahead of a wait for the next one; the system's own modal waits don't, and there it ends
  /// by a timer. @return whether there was such a turn.
  bool TakeIdle();

  /// The main window is gone: the message loop ends, and every modal wait with it.
  void End();
  bool HasEnded() const { return ended_; }

 private:
  bool TurnIsSpared() override;
  void BeginTurn() override;
  void Rest();
  void StartTimer();
  void EndShortTurn();
  void FinishTurn();
  bool AnyUnderWay() const;

  MessageWindow window_;
  std::vector<std::function<bool()>> watched_;
  std::chrono::steady_clock::time_point lastTurn_;
  bool rests_ = false;
  bool awaitsIdle_ = false;
  bool ended_ = false;
};

}  // namespace kestrava
