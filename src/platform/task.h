#pragma once

#include <coroutine>
#include <exception>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

#include "platform/error_report.h"

namespace kestrava {

template <typename Result>
class Task;

/// What the promises of all tasks have in common.
class TaskPromise {
 public:
  std::suspend_always initial_suspend() const noexcept { return {}; }
  auto final_suspend() const noexcept { return AtEnd(); }
  void unhandled_exception() noexcept { error_ = std::current_exception(); }

 protected:
  void RethrowError() const {
    if (error_) std::rethrow_exception(error_);
  }

 private:
  template <typename Result>
  friend class Task;

  /// The work has ended: whoever awaits it goes on.
  struct AtEnd {
    bool await_ready() const noexcept { return false; }
    template <typename Promise>
    void await_suspend(std::coroutine_handle<Promise> work) const noexcept {
      const TaskPromise& promise = work.promise();
      if (promise.started_ && promise.error_) ReportError(promise.error_);
      // The caller may let go of this work, so nothing of it is touched from here on.
      if (const auto caller = promise.caller_) caller.resume();
    }
    void await_resume() const noexcept {}
  };

  std::coroutine_handle<> caller_;  ///< what awaits the work, once the work has had to wait itself
  std::exception_ptr error_;
  bool started_ = false;  ///< by `Start`: nobody awaits it
};

/// A piece of work that may wait in its midst, while the event loop goes on: a coroutine that gives
/// a `Result`. All of it runs on the one thread.
///
/// Nothing runs before the task is started or awaited. From then on the work runs in steps, from
/// one wait to the next: the first on the stack of whoever starts or awaits it, each further one on
/// the stack of what it waited for. A task that is awaited gives its result, or throws its error,
/// to whoever awaits it.
///
/// A task can be made of its result, too, where nothing is to be waited for.
///
/// Whoever holds the task holds the work. A task that goes while its work waits ends that work
/// there: what the work holds is released, in the usual order, the tasks that it awaits among it,
/// and nothing of it runs any more. A task must not go from within a step of its own work.
template <typename Result = void>
class [[nodiscard]] Task {
  using Value = std::conditional_t<std::is_void_v<Result>, std::monostate, Result>;

 public:
  class promise_type;

  /// No work.
  Task() = default;
  /// Work that is done.
  Task(Value result) requires(!std::is_void_v<Result>) : result_(std::move(result)) {}
  Task(Task&& other) noexcept
      : work_(std::exchange(other.work_, nullptr)), result_(std::move(other.result_)) {}
  Task& operator=(Task&& other) noexcept {
    Task(std::move(other)).Swap(*this);
    return *this;
  }
  ~Task() {
    if (work_) work_.destroy();
  }

  /// Runs the work up to its first wait; nobody awaits its end. An error that the work lets out is
  /// told on standard error. To be called once.
  void Start() requires std::is_void_v<Result> {
    work_.promise().started_ = true;
    work_.resume();
  }

  /// There is work that hasn't come to its end.
  bool UnderWay() const { return work_ && !work_.done(); }

  // Awaiting, once.
  bool await_ready() const noexcept { return result_.has_value(); }
  /// @return whether the work has to wait; else it is done, on no more stack than a call takes.
  bool await_suspend(std::coroutine_handle<> caller) {
    work_.resume();
    if (work_.done()) return false;
    static_cast<TaskPromise&>(work_.promise()).caller_ = caller;
    return true;
  }
  [[nodiscard]] Result await_resume() {
    if constexpr (!std::is_void_v<Result>) {
      if (result_) return std::move(*result_);
    }
    return work_.promise().Take();
  }

 private:
  using Work = std::coroutine_handle<promise_type>;

  explicit Task(Work work) : work_(work) {}
  void Swap(Task& other) noexcept {
    std::swap(work_, other.work_);
    std::swap(result_, other.result_);
  }

  Work work_;
  std::optional<Value> result_;  ///< where there is no work
};

template <typename Result>
class Task<Result>::promise_type : public TaskPromise {
 public:
  Task get_return_object() { return Task(Work::from_promise(*this)); }
  void return_value(Result result) { result_ = std::move(result); }
  Result Take() {
    RethrowError();
    return std::move(*result_);
  }

 private:
  std::optional<Result> result_;
};

template <>
class Task<void>::promise_type : public TaskPromise {
 public:
  Task get_return_object() { return Task(Work::from_promise(*this)); }
  void return_void() const noexcept {}
  void Take() const { RethrowError(); }
};

}  // namespace kestrava
