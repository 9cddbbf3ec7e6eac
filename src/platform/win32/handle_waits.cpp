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
      window_([this](unsigned, std::uintptr_t number, std::intptr_t) { TakeEnd(number); }) {
  eventLoop_.Watch([this] { return !waiting_.empty(); });
}

void HandleWaits::TakeEnd(std::uintptr_t number) {
  const auto found = std::ranges::find(waiting_, number, &Wait::number_);
  if (found == waiting_.end()) return;
  Wait& wait = **found;
  const bool rests = eventLoop_.Rests();
  wait.End();
  std::exchange(wait.work_, nullptr).resume();
  if (rests) eventLoop_.EndRest();
}

bool HandleWaits::Wait::await_suspend(std::coroutine_handle<> work) {
  waits_.waiting_.reserve(waits_.waiting_.size() + 1);
  number_ = ++waits_.lastNumber_;
  const auto longest = static_cast<ULONG>(std::max<std::int64_t>(longest_.count(), 0));
  if (!RegisterWaitForSingleObject(&registration_, handle_, &Tell, this, longest,
                                   WT_EXECUTEONLYONCE)) {
    registration_ = nullptr;
    return false;
  }
  work_ = work;
  waits_.waiting_.push_back(this);
  return true;
}

/// Runs on a thread of the pool. What it reads stays as it is until `End` has waited for it.
void HandleWaits::Wait::Tell(void* wait, unsigned char) {
  const auto* self = static_cast<const Wait*>(wait);
  PostMessageW(self->waits_.window_.Handle(), kEnded, self->number_, 0);
}

void HandleWaits::Wait::End() noexcept {
  if (!registration_) return;
  // Returns when `Tell` runs no more, which never waits for anything.
  UnregisterWaitEx(std::exchange(registration_, nullptr), INVALID_HANDLE_VALUE);
  std::erase(waits_.waiting_, this);
}

}  // namespace kestrava
