#include "platform/win32/handle_waits.h"

#include <algorithm>
#include <utility>

#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr UINT kEnded = WM_APP;

}  // namespace

HandleWaits::HandleWaits(Win32EventLoop& eventLoop)
    : eventLoop_(eventLoop),
      window_(MessageWindow::Kind::MessagesOnly,
              [this](unsigned message, std::uintptr_t number, std::intptr_t) {
                if (message == kEnded) TakeEnd(number);
                return message == kEnded;
              }),
      watch_(window_.Handle(), kEnded) {
  eventLoop_.Watch([this] { return !waiting_.empty(); });
}

void HandleWaits::TakeEnd(std::uintptr_t number) {
  const auto found = std::ranges::find(waiting_, number, &Wait::number_);
  if (found == waiting_.end()) return;
  Wait& wait = **found;
  const bool rests = eventLoop_.Rests();
  const auto work = wait.work_;
  wait.End();
  work.resume();
  if (rests) eventLoop_.EndRest();
}

bool HandleWaits::Wait::await_suspend(std::coroutine_handle<> work) {
  waits_.waiting_.reserve(waits_.waiting_.size() + 1);
  number_ = ++waits_.lastNumber_;
  if (!waits_.watch_.Add(number_, handle_, std::chrono::steady_clock::now() + longest_)) {
    return false;
  }
  work_ = work;
  waits_.waiting_.push_back(this);
  return true;
}

void HandleWaits::Wait::End() noexcept {
  if (!std::exchange(work_, nullptr)) return;
  waits_.watch_.Remove(number_);
  std::erase(waits_.waiting_, this);
}

}  // namespace kestrava
