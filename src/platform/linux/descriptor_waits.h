#pragma once

#include <chrono>
#include <coroutine>
#include <vector>

#include "platform/linux/event_source.h"
#include "platform/linux/file_descriptor.h"

namespace kestrava {

/// Lets work wait until descriptors can be read, while the event loop goes on.
class DescriptorWaits final : public EventSource {
 public:
  using Deadline = std::chrono::steady_clock::time_point;
  class Wait;

  /// @throws std::system_error if the system has no descriptors left for it.
  DescriptorWaits();

  /// `co_await Readable(descriptor, deadline)` waits until the descriptor polls readable or has an
  /// error, until `deadline` at the latest, and gives whether it does. A descriptor that can't be
  /// waited for counts as readable at once, so that reading it tells why. No two waits may be for
  /// one descriptor.
  Wait Readable(int descriptor, Deadline deadline);

  int Descriptor() const override { return events_.Number(); }
  void Dispatch() noexcept override;
  bool UnderWay() const override { return !waiting_.empty(); }

 private:
  void SetTimer();

  FileDescriptor events_;  ///< an epoll instance that holds the timer and what is waited for
  FileDescriptor timer_;   ///< runs until the next deadline
  std::vector<Wait*> waiting_;
};

/// What `Readable` gives, to be awaited at once.
class [[nodiscard]] DescriptorWaits::Wait {
 public:
  Wait(DescriptorWaits& waits, int descriptor, Deadline deadline)
      : waits_(waits), descriptor_(descriptor), deadline_(deadline) {}
  /// Work that is dropped meanwhile doesn't wait any more.
  ~Wait() { End(); }
  Wait(const Wait&) = delete;
  Wait& operator=(const Wait&) = delete;

  bool await_ready() const noexcept { return false; }
  bool await_suspend(std::coroutine_handle<> work);
  [[nodiscard]] bool await_resume() const noexcept { return readable_; }

 private:
  friend DescriptorWaits;

  void End() noexcept;

  DescriptorWaits& waits_;
  int descriptor_;
  Deadline deadline_;
  bool readable_ = true;
  std::coroutine_handle<> work_;  ///< set while it waits
};

inline DescriptorWaits::Wait DescriptorWaits::Readable(int descriptor, Deadline deadline) {
  return {*this, descriptor, deadline};
}

}  // namespace kestrava
