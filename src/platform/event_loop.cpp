#include "platform/event_loop.h"

#include <utility>

namespace kestrava {

void EventLoop::EndTurn() {
  // What goes on may wait for the next turn at once, or drop other work that waited for this one.
  ended_.swap(waiting_);
  while (!ended_.empty()) {
    Turn* turn = ended_.back();
    ended_.pop_back();
    std::exchange(turn->work_, nullptr).resume();
  }
}

EventLoop::Turn::~Turn() {
  if (!work_) return;
  std::erase(loop_.waiting_, this);
  std::erase(loop_.ended_, this);
}

void EventLoop::Turn::await_suspend(std::coroutine_handle<> work) {
  work_ = work;
  loop_.waiting_.push_back(this);
  if (loop_.waiting_.size() == 1) loop_.BeginTurn();
}

}  // namespace kestrava
