#include "platform/win32/handle_watch.h"

#include <algorithm>
#include <system_error>

#include "platform/win32/owned_handle.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

using std::chrono::ceil;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// One call waits for no more, and one place is the watch's own.
constexpr std::size_t kMostWatched = MAXIMUM_WAIT_OBJECTS - 1;

/// One of the waits.
struct Watched {
  std::uintptr_t number;
  std::shared_ptr<void> handle;  ///< the watch's own
  HandleWatch::Deadline deadline;
};

class Locked {
 public:
  explicit Locked(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
  ~Locked() { ReleaseSRWLockExclusive(&lock_); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;

 private:
  SRWLOCK& lock_;
};

DWORD UntilFirstDeadline(const std::vector<Watched>& watched) {
  const auto first = std::ranges::min_element(watched, {}, &Watched::deadline);
  if (first == watched.end()) return INFINITE;
  const auto rest = ceil<milliseconds>(first->deadline - steady_clock::now());
  return static_cast<DWORD>(std::max<std::int64_t>(rest.count(), 0));
}

bool IsSignalled(const Watched& watched) {
  return WaitForSingleObject(watched.handle.get(), 0) != WAIT_TIMEOUT;
}

}  // namespace

struct HandleWatch::Shared {
  HWND window;
  UINT message;
  OwnedHandle changed{CreateEventW(nullptr, FALSE, FALSE, nullptr)};
  SRWLOCK lock = SRWLOCK_INIT;
  std::vector<Watched> watched;  ///< under the lock, as is the next
  bool ended = false;
};

HandleWatch::HandleWatch(HWND window, unsigned message)
    : shared_(std::make_unique<Shared>()), thread_(nullptr) {
  shared_->window = window;
  shared_->message = message;
  shared_->watched.reserve(kMostWatched);
  if (shared_->changed) thread_ = CreateThread(nullptr, 0, &Run, shared_.get(), 0, nullptr);
  if (!thread_) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
  }
}

HandleWatch::~HandleWatch() {
  {
    const Locked locked(shared_->lock);
    shared_->ended = true;
  }
  SetEvent(shared_->changed.get());
  WaitForSingleObject(thread_, INFINITE);
  CloseHandle(thread_);
}

bool HandleWatch::Add(std::uintptr_t number, void* handle, Deadline deadline) {
  HANDLE own = nullptr;
  if (!DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &own, SYNCHRONIZE, FALSE,
                       0)) {
    return false;
  }
  Watched watched{number, std::shared_ptr<void>(own, HandleCloser()), deadline};
  {
    const Locked locked(shared_->lock);
    if (shared_->watched.size() == kMostWatched) return false;
    shared_->watched.push_back(std::move(watched));
  }
  SetEvent(shared_->changed.get());
  return true;
}

void HandleWatch::Remove(std::uintptr_t number) {
  const Locked locked(shared_->lock);
  // The thread may wait for it a little longer, for nothing.
  std::erase_if(shared_->watched,
                [number](const Watched& watched) { return watched.number == number; });
}

unsigned long HandleWatch::Run(void* given) {
  auto& shared = *static_cast<Shared*>(given);
  std::vector<Watched> watched;
  watched.reserve(kMostWatched);
  std::vector<HANDLE> handles;
  handles.reserve(MAXIMUM_WAIT_OBJECTS);
  for (;;) {
    {
      const Locked locked(shared.lock);
      if (shared.ended) return 0;
      const auto now = steady_clock::now();
      std::erase_if(shared.watched, [&](const Watched& wait) {
        if (now < wait.deadline && !IsSignalled(wait)) return false;
        PostMessageW(shared.window, shared.message, wait.number, 0);
        return true;
      });
      watched = shared.watched;
    }
    handles.assign(1, shared.changed.get());
    for (const Watched& wait : watched) handles.push_back(wait.handle.get());
    WaitForMultipleObjects(static_cast<DWORD>(handles.size()), handles.data(), FALSE,
                           UntilFirstDeadline(watched));
  }
}

}  // namespace kestrava
