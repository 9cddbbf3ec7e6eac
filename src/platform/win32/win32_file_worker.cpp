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

}  // namespace

struct Win32FileWorker::RunningJob {
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
  steady_clock::time_point deadline = steady_clock::now() + kLongestJob;
  OwnedHandle done{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

Win32FileWorker::~Win32FileWorker() {
  for (const auto& running : underWay_) {
    if (running->atEnd == AtEnd::Finish) running->WaitFor(running->Rest());
  }
}

Task<> Win32FileWorker::Run(std::string name, AtEnd atEnd, Job job) {
  const auto running = Send(std::move(name), atEnd, std::move(job));
  if (!running->WaitFor(kShortWait))
    co_await waits_.Signalled(running->done.get(), running->Rest());
  if (!running->IsDone()) RaiseSystemError(ERROR_TIMEOUT);
  if (running->error) std::rethrow_exception(running->error);
}

std::shared_ptr<Win32FileWorker::RunningJob> Win32FileWorker::Send(std::string name, AtEnd atEnd,
                                                                   Job job) {
  std::erase_if(underWay_, [](const auto& running) { return running->IsDone(); });
  // What hangs may yet happen, and must not happen to what a later job has made of the file.
  if (underWay_.size() >= kMostJobs ||
      std::ranges::find(underWay_, name, &RunningJob::name) != underWay_.end()) {
    RaiseSystemError(ERROR_BUSY);
  }
  underWay_.reserve(underWay_.size() + 1);
  auto running = std::make_shared<RunningJob>();
  if (!running->done) RaiseSystemError(GetLastError());
  running->name = std::move(name);
  running->atEnd = atEnd;
  running->job = std::move(job);
  auto threads = std::make_unique<std::shared_ptr<RunningJob>>(running);
  const auto run = [](void* given) -> DWORD {
    const std::unique_ptr<std::shared_ptr<RunningJob>> mine(
        static_cast<std::shared_ptr<RunningJob>*>(given));
    RunningJob& work = **mine;
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
  underWay_.push_back(running);
  return running;
}

}  // namespace kestrava
