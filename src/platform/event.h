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

/// Observes something for as long as it lives, or until another one is assigned. What it observes
/// must outlive it.
/// @tparam Observer what is told of changes; that of no observation is `Observer{}`.
template <typename Observer = std::function<void()>>
class [[nodiscard]] Observation {
 public:
  /// Of nothing.
  Observation() = default;
  /// @param place where the observed object keeps its one observer; there is none yet.
  Observation(Observer& place, Observer observer) : place_(&place) { place = std::move(observer); }
  Observation(Observation&& other) noexcept : place_(std::exchange(other.place_, nullptr)) {}
  Observation& operator=(Observation&& other) noexcept {
    End();
    place_ = std::exchange(other.place_, nullptr);
    return *this;
  }
  ~Observation() { End(); }

 private:
  void End() noexcept {
    if (place_) *place_ = Observer{};
  }

  Observer* place_ = nullptr;
};

/// State that a desktop mirrors. The desktop that shows the object observes it; every change is
/// told once, after it was made.
class Observable {
 public:
  Observable() = default;
  Observable(const Observable&) = delete;
  Observable& operator=(const Observable&) = delete;

  /// There is one observer at a time.
  Observation<> Observe(std::function<void()> observer) { return {observer_, std::move(observer)}; }

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
