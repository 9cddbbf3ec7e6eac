#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/win32/handles.h"

namespace kestrava {

/// A thread that does nothing but wait for what is signalled, and posts a message to a window for
/// it. (The system's own pool of threads would do, but that of Wine 8 ends the program when waits
/// are taken back quickly.)
class HandleWatch {
 public:
  using Deadline = std::chrono::steady_clock::time_point;

  /// `window` gets `message`, with the number of the wait.
  /// @throws std::system_error if the system has no thread left for it.
  HandleWatch(HWND__* window, unsigned message);
  ~HandleWatch();
  HandleWatch(const HandleWatch&) = delete;
  HandleWatch& operator=(const HandleWatch&) = delete;

  /// One message for `number` from now on, once the event of `handle` is signalled, at `deadline`
  /// at the latest. The handle may be closed meanwhile. @return whether it is watched.
  bool Add(std::uintptr_t number, void* handle, Deadline deadline);

  /// No more message is posted for `number`; one may wait already.
  void Remove(std::uintptr_t number);

 private:
  struct Shared;

  static unsigned long __stdcall Run(void* shared);

  std::unique_ptr<Shared> shared_;
  void* thread_;
};

}  // namespace kestrava
