#include "platform/win32/win32_file_worker.h"

#include <algorithm>
#include <exception>

#include "platform/win32/owned_handle.h"
#include "platform/win32/system_error.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

using namespace std::chrono;

constexpr milliseconds kMoment(300);  ///< for which the caller simply waits
constexpr milliseconds kLongest(10'000);

/// Each holds a thread, and memory for what it reads or writes.
constexpr std::size_t kMostUnderWay = 8;

}  // namespace

struct Win32FileWorker::Errand {
  /// Returns when the job is done, after `longest` at the latest. @return whether it is.
  bool WaitFor(milliseconds longest) const {
    return WaitForSingleObject(done.get(), static_cast<DWORD>(longest.count())) == WAIT_OBJECT_0;
  }
  bool IsDone() const { return WaitFor(milliseconds(0)); }
  milliseconds Rest() const {
    return std::max(ceil<milliseconds>(deadline - steady_clock::now()), milliseconds(0));
  }

  std::string name;
  AtEnd atEnd = AtEnd::Drop;
  Job job;  ///< belongs to its thread until it is done, as does the error
  std::exception_ptr error;
  steady_clock::time_point deadline = steady_clock::now() + kLongest;
  OwnedHandle done{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

Win32FileWorker::~Win32FileWorker() {
  for (const auto& errand : underWay_) {
    if (errand->atEnd == AtEnd::Finish) errand->WaitFor(errand->Rest());
  }
}

Task<> Win32FileWorker::Run(std::string name, AtEnd atEnd, Job job) {
  const auto errand = Send(std::move(name), atEnd, std::move(job));
  if (!errand->WaitFor(kMoment)) co_await waits_.Signalled(errand->done.get(), errand->Rest());
  if (!errand->IsDone()) RaiseSystemError(ERROR_TIMEOUT);
  if (errand->error) std::rethrow_exception(errand->error);
}

std::shared_ptr<Win32FileWorker::Errand> Win32FileWorker::Send(std::string name, AtEnd atEnd,
                                                               Job job) {
  std::erase_if(underWay_, [](const auto& errand) { return errand->IsDone(); });
  // What hangs may yet happen, and must not happen to what a later job has made of the file.
  if (underWay_.size() >= kMostUnderWay ||
      std::ranges::find(underWay_, name, &Errand::name) != underWay_.end()) {
    RaiseSystemError(ERROR_BUSY);
  }
  underWay_.reserve(underWay_.size() + 1);
  auto errand = std::make_shared<Errand>();
  if (!errand->done) RaiseSystemError(GetLastError());
  errand->name = std::move(name);
  errand->atEnd = atEnd;
  errand->job = std::move(job);
  auto threads = std::make_unique<std::shared_ptr<Errand>>(errand);
  const auto run = [](void* given) -> DWORD {
    const std::unique_ptr<std::shared_ptr<Errand>> mine(
        static_cast<std::shared_ptr<Errand>*>(given));
    Errand& work = **mine;
    try {
      Win32FileSystem files;
      work.job(files);
    } catch (...) {
      work.error = std::current_exception();
    }
    work.job = nullptr;
    SetEvent(work.done.get());
    return 0;
  };
  // (The toolchain's own threads aren't to be had in every variant of it.)
  const OwnedHandle thread(CreateThread(nullptr, 0, run, threads.get(), 0, nullptr));
  if (!thread) RaiseSystemError(GetLastError());
  static_cast<void>(threads.release());
  underWay_.push_back(errand);
  return errand;
}

}  // namespace kestrava
