#include "platform/win32/win32_event_loop.h"

#include <algorithm>

#include "platform/error_report.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

using std::chrono::steady_clock;

constexpr UINT kTurnMessage = WM_APP;
constexpr UINT_PTR kRestTimer = 1;

}  // namespace

Win32EventLoop::Win32EventLoop()
    : window_(MessageWindow::Kind::MessagesOnly,
              [this](unsigned message, std::uintptr_t, std::intptr_t) {
                if (message == kTurnMessage) {
                  EndShortTurn();
                } else if (message == WM_TIMER) {
                  FinishTurn();
                } else {
                  return false;
                }
                return true;
              }) {}

void Win32EventLoop::EndRest() {
  if (rests_) FinishTurn();
}

bool Win32EventLoop::TakeIdle() {
  if (!awaitsIdle_) return false;
  try {
    FinishTurn();
  } catch (...) {
    ReportError(std::current_exception());
  }
  return true;
}

void Win32EventLoop::End() {
  ended_ = true;
  PostQuitMessage(0);
}

bool Win32EventLoop::TurnIsSpared() {
  if (ended_ || AnyUnderWay()) return false;
  const auto now = steady_clock::now();
  if (now - lastTurn_ < kSparedFor) return true;
  // Where nothing waits, the turn has ended.
  if (HIWORD(GetQueueStatus(QS_ALLINPUT)) != 0) return false;
  lastTurn_ = now;
  return true;
}

void Win32EventLoop::BeginTurn() {
  if (AnyUnderWay() || !PostMessageW(window_.Handle(), kTurnMessage, 0, 0)) Rest();
}

void Win32EventLoop::Rest() {
  rests_ = true;
  StartTimer();
}

void Win32EventLoop::StartTimer() {
  SetTimer(window_.Handle(), kRestTimer, UINT{kLongestRest.count()}, nullptr);
}

void Win32EventLoop::EndShortTurn() {
  // A posted message comes ahead of what the user does, of painting and of timers: of all that the
  // turn is for. A timer comes after all of them.
  awaitsIdle_ = HIWORD(GetQueueStatus(QS_INPUT | QS_PAINT | QS_TIMER)) != 0;
  if (awaitsIdle_) return StartTimer();
  FinishTurn();
}

void Win32EventLoop::FinishTurn() {
  if (rests_ || awaitsIdle_) KillTimer(window_.Handle(), kRestTimer);
  rests_ = false;
  awaitsIdle_ = false;
  lastTurn_ = steady_clock::now();
  EndTurn();
}

bool Win32EventLoop::AnyUnderWay() const {
  return std::ranges::any_of(watched_, [](const auto& isUnderWay) { return isUnderWay(); });
}

}  // namespace kestrava
