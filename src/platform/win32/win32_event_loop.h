#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "platform/event_loop.h"

struct HWND__;

namespace kestrava {

/// The thread's message loop. Whatever ends a turn comes as a message to a window of its own that
/// is never shown, and so is served inside the system's own modal waits, too.
class Win32EventLoop final : public EventLoop {
 public:
  /// @throws std::system_error if the system has no window left for it.
  Win32EventLoop();
  ~Win32EventLoop() override;
  Win32EventLoop(const Win32EventLoop&) = delete;
  Win32EventLoop& operator=(const Win32EventLoop&) = delete;

  /// `isUnderWay` says whether an echo or an attempt of its kind is under way, so that a turn
  /// rests.
  void Watch(std::function<bool()> isUnderWay) { watched_.push_back(std::move(isUnderWay)); }

  /// Something came of what is under way: a turn that rests ends now.
  void EndRest();
  /// Whether a turn rests.
  bool Rests() const { return rests_; }

  /// The main window is gone: the message loop ends, and every modal wait with it.
  void End();
  bool HasEnded() const { return ended_; }

 private:
  static std::intptr_t __stdcall Receive(HWND__* window, unsigned message, std::uintptr_t wParam,
                                         std::intptr_t lParam);

  bool TurnIsSpared() override;
  void BeginTurn() override;
  void Rest();
  void EndShortTurn();
  void FinishTurn();
  bool AnyUnderWay() const;

  HWND__* window_;
  std::vector<std::function<bool()>> watched_;
  std::chrono::steady_clock::time_point lastTurn_;
  bool rests_ = false;
  bool ended_ = false;
};

}  // namespace kestrava
