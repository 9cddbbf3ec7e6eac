#pragma once

#include <functional>
#include <utility>

namespace kestrava {

/// Something that happens to a control, with the one handler that answers it.
class Event {
 public:
  void Connect(std::function<void()> handler) { handler_ = std::move(handler); }

  /// Runs the handler to its end. Whatever the handler throws is told on standard error and goes
  /// no further, so that the event loop that delivered the event never sees an exception.
  void Raise() const noexcept;

 private:
  std::function<void()> handler_;
};

/// State that a desktop mirrors. The desktop that shows the object observes it; every change is
/// told once, after it was made.
class Observable {
 public:
  Observable() = default;
  Observable(const Observable&) = delete;
  Observable& operator=(const Observable&) = delete;

  /// Sets the one observer; an empty function takes it away again.
  void Observe(std::function<void()> observer) { observer_ = std::move(observer); }

 protected:
  ~Observable() = default;

  void Notify() const {
    if (observer_) observer_();
  }

  /// Stores `value` in `field` and tells the observer, if that changes anything.
  template <typename Value>
  void Change(Value& field, Value value) {
    if (field == value) return;
    field = std::move(value);
    Notify();
  }

 private:
  std::function<void()> observer_;
};

}  // namespace kestrava
