#include "platform/linux/descriptor_waits.h"

#include <algorithm>
#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <utility>

namespace kestrava {

namespace {

bool Watch(int events, int descriptor) {
  epoll_event event{};
  event.events = EPOLLIN;
  event.data.fd = descriptor;
  return epoll_ctl(events, EPOLL_CTL_ADD, descriptor, &event) == 0;
}

}  // namespace

DescriptorWaits::DescriptorWaits()
    : events_(CheckedDescriptor(epoll_create1(EPOLL_CLOEXEC))),
      timer_(CheckedDescriptor(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC))) {
  if (!Watch(events_.Number(), timer_.Number())) {
    throw std::system_error(errno, std::generic_category());
  }
}

void DescriptorWaits::Dispatch() noexcept {
  // One at a time: the work that goes on may end other waits.
  epoll_event event;
  if (epoll_wait(events_.Number(), &event, 1, 0) != 1) return;
  const bool timeIsUp = event.data.fd == timer_.Number();
  const auto now = std::chrono::steady_clock::now();
  const auto found = std::ranges::find_if(waiting_, [&](const Wait* wait) {
    return timeIsUp ? wait->deadline_ <= now : wait->descriptor_ == event.data.fd;
  });
  if (found == waiting_.end()) return SetTimer();
  Wait& wait = **found;
  wait.readable_ = !timeIsUp;
  const auto work = wait.work_;
  wait.End();
  work.resume();
}

/// Makes the timer poll readable at the next deadline; without one it stands still.
void DescriptorWaits::SetTimer() {
  using namespace std::chrono;
  itimerspec time{};
  if (!waiting_.empty()) {
    const auto next = (*std::ranges::min_element(waiting_, {}, &Wait::deadline_))->deadline_;
    // A time that has passed is due at once; 0 would stop the timer.
    const auto sinceStart = std::max<nanoseconds>(next.time_since_epoch(), 1ns);
    const auto wholeSeconds = floor<seconds>(sinceStart);
    time.it_value = {wholeSeconds.count(), (sinceStart - wholeSeconds).count()};
  }
  timerfd_settime(timer_.Number(), TFD_TIMER_ABSTIME, &time, nullptr);
}

bool DescriptorWaits::Wait::await_suspend(std::coroutine_handle<> work) {
  if (!Watch(waits_.events_.Number(), descriptor_)) return false;
  work_ = work;
  waits_.waiting_.push_back(this);
  waits_.SetTimer();
  return true;
}

void DescriptorWaits::Wait::End() noexcept {
  if (!std::exchange(work_, nullptr)) return;
  std::erase(waits_.waiting_, this);
  epoll_ctl(waits_.events_.Number(), EPOLL_CTL_DEL, descriptor_, nullptr);
  waits_.SetTimer();
}

}  // namespace kestrava
