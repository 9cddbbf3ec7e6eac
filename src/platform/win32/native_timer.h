#pragma once

#include <chrono>

#include "platform/timer.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

/// Makes one timer of a form tick, by the messages of its window, until it is destroyed.
class NativeTimer {
 public:
  /// `id` is the timer's number in `window`.
  NativeTimer(Timer& timer, HWND window, UINT_PTR id);
  ~NativeTimer();
  NativeTimer(const NativeTimer&) = delete;
  NativeTimer& operator=(const NativeTimer&) = delete;

  /// The window's timer of that number has run out.
  void TakeEnd();

 private:
  void Follow();
  void WaitUntilDue();

  Timer& timer_;
  Observation<> observation_;
  HWND window_;
  UINT_PTR id_;
  bool waits_ = false;
  std::chrono::milliseconds interval_{};
  std::chrono::steady_clock::time_point due_;  ///< of the next tick
};

}  // namespace kestrava
