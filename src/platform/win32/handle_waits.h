#pragma once

#include <chrono>
#include <coroutine>
#include <cstdint>
#include <vector>

#include "platform/win32/handle_watch.h"
#include "platform/win32/message_window.h"
#include "platform/win32/win32_event_loop.h"

namespace kestrava {

/// Lets work wait until something of the system's is signalled, while the event loop goes on.
/// `HandleWatch` waits for it on a thread of its own and posts a message.
class HandleWaits {
 public:
  class Wait;

  explicit HandleWaits(Win32EventLoop& eventLoop);

  /// `co_await Signalled(handle, longest)` waits until the event of that handle is signalled, for
  /// `longest` at most. One that can't be waited for is not waited for.
  Wait Signalled(void* handle, std::chrono::milliseconds longest);

 private:
  void TakeEnd(std::uintptr_t number);

  Win32EventLoop& eventLoop_;
  MessageWindow window_;
  HandleWatch watch_;
  std::vector<Wait*> waiting_;
  std::uintptr_t lastNumber_ = 0;
};

/// What `Signalled` gives, to be awaited at once.
class [[nodiscard]] HandleWaits::Wait {
 public:
  Wait(HandleWaits& waits, void* handle, std::chrono::milliseconds longest)
      : waits_(waits), handle_(handle), longest_(longest) {}
  /// Work that is dropped meanwhile doesn't wait any more.
  ~Wait() { End(); }
  Wait(const Wait&) = delete;
  Wait& operator=(const Wait&) = delete;

  bool await_ready() const noexcept { return false; }
  bool await_suspend(std::coroutine_handle<> work);
  void await_resume() const noexcept {}

 private:
  friend HandleWaits;

  void End() noexcept;

  HandleWaits& waits_;
  void* handle_;
  std::chrono::milliseconds longest_;
  std::uintptr_t number_ = 0;     ///< of the message that ends it
  std::coroutine_handle<> work_;  ///< set while it waits
};

inline HandleWaits::Wait HandleWaits::Signalled(void* handle, std::chrono::milliseconds longest) {
  return {*this, handle, longest};
}

}  // namespace kestrava
