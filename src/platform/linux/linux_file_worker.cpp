#include "platform/linux/linux_file_worker.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <exception>
#include <poll.h>
#include <sys/eventfd.h>
#include <system_error>
#include <thread>
#include <tuple>

#include "platform/linux/linux_file_system.h"
#include "platform/linux/system_error.h"

namespace kestrava {

namespace {

using std::chrono::steady_clock;

}  // namespace

struct LinuxFileWorker::RunningJob {
  /// Returns when the job is done, at that time at the latest. @return whether it is.
  bool WaitUntil(steady_clock::time_point time) const {
    using namespace std::chrono;
    for (auto rest = time - steady_clock::now(); !done && rest > 0ns;
         rest = time - steady_clock::now()) {
      pollfd watched{doneEvent.Number(), POLLIN, 0};
      poll(&watched, 1, static_cast<int>(ceil<milliseconds>(rest).count()));
    }
    return done;
  }

  std::string name;
  AtEnd atEnd;
  steady_clock::time_point deadline;
  FileDescriptor doneEvent =
      CheckedDescriptor(eventfd(0, EFD_CLOEXEC));  ///< readable once it is done
  std::exception_ptr error;  ///< of the job; belongs to its thread until it is done
  std::atomic<bool> done = false;
};

LinuxFileWorker::~LinuxFileWorker() {
  for (const auto& running : underWay_) {
    if (running->atEnd == AtEnd::Finish) running->WaitUntil(running->deadline);
  }
}

Task<> LinuxFileWorker::Run(std::string name, AtEnd atEnd, Job job) {
  const auto running = Send(std::move(name), atEnd, std::move(job));
  if (!running->WaitUntil(steady_clock::now() + patience_.moment)) {
    // Whether it is done is asked below in either case.
    std::ignore = co_await waits_.Readable(running->doneEvent.Number(), running->deadline);
  }
  if (!running->done) RaiseSystemError(ETIMEDOUT);
  if (running->error) std::rethrow_exception(running->error);
}

std::shared_ptr<LinuxFileWorker::RunningJob> LinuxFileWorker::Send(std::string name, AtEnd atEnd,
                                                                   Job job) {
  std::erase_if(underWay_, [](const auto& running) { return running->done.load(); });
  // What hangs may yet happen, and must not happen to what a later job has made of the file.
  if (underWay_.size() >= kMostJobs ||
      std::ranges::find(underWay_, name, &RunningJob::name) != underWay_.end()) {
    RaiseSystemError(EBUSY);
  }
  underWay_.reserve(underWay_.size() + 1);
  try {
    auto running = std::make_shared<RunningJob>();
    running->name = std::move(name);
    running->atEnd = atEnd;
    running->deadline = steady_clock::now() + patience_.longest;
    std::thread([running, job = std::move(job)]() mutable {
      try {
        LinuxFileSystem files;
        job(files);
      } catch (...) {
        running->error = std::current_exception();
      }
      job = nullptr;
      running->done = true;
      eventfd_write(running->doneEvent.Number(), 1);
    }).detach();
    underWay_.push_back(running);
    return running;
  } catch (const std::system_error& error) {
    RaiseSystemError(error.code().value());
  }
}

}  // namespace kestrava
