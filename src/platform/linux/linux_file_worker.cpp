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

/// Each holds a thread, and memory for what it reads or writes.
constexpr std::size_t kMostUnderWay = 8;

}  // namespace

struct LinuxFileWorker::Errand {
  /// Returns when the job is done, at that time at the latest. @return whether it is.
  bool WaitUntil(steady_clock::time_point time) const {
    using namespace std::chrono;
    for (auto rest = time - steady_clock::now(); !done && rest > 0ns;
         rest = time - steady_clock::now()) {
      pollfd watched{bell.Number(), POLLIN, 0};
      poll(&watched, 1, static_cast<int>(ceil<milliseconds>(rest).count()));
    }
    return done;
  }

  std::string name;
  AtEnd atEnd;
  steady_clock::time_point deadline;
  FileDescriptor bell = CheckedDescriptor(eventfd(0, EFD_CLOEXEC));  ///< readable once it is done
  std::exception_ptr error;  ///< of the job; belongs to its thread until it is done
  std::atomic<bool> done = false;
};

LinuxFileWorker::~LinuxFileWorker() {
  for (const auto& errand : underWay_) {
    if (errand->atEnd == AtEnd::Finish) errand->WaitUntil(errand->deadline);
  }
}

Task<> LinuxFileWorker::Run(std::string name, AtEnd atEnd, Job job) {
  const auto errand = Send(std::move(name), atEnd, std::move(job));
  if (!errand->WaitUntil(steady_clock::now() + patience_.moment)) {
    // Whether it is done is asked below in either case.
    std::ignore = co_await waits_.Readable(errand->bell.Number(), errand->deadline);
  }
  if (!errand->done) RaiseSystemError(ETIMEDOUT);
  if (errand->error) std::rethrow_exception(errand->error);
}

std::shared_ptr<LinuxFileWorker::Errand> LinuxFileWorker::Send(std::string name, AtEnd atEnd,
                                                               Job job) {
  std::erase_if(underWay_, [](const auto& errand) { return errand->done.load(); });
  // What hangs may yet happen, and must not happen to what a later job has made of the file.
  if (underWay_.size() >= kMostUnderWay ||
      std::ranges::find(underWay_, name, &Errand::name) != underWay_.end()) {
    RaiseSystemError(EBUSY);
  }
  underWay_.reserve(underWay_.size() + 1);
  try {
    auto errand = std::make_shared<Errand>();
    errand->name = std::move(name);
    errand->atEnd = atEnd;
    errand->deadline = steady_clock::now() + patience_.longest;
    std::thread([errand, job = std::move(job)]() mutable {
      try {
        LinuxFileSystem files;
        job(files);
      } catch (...) {
        errand->error = std::current_exception();
      }
      job = nullptr;
      errand->done = true;
      eventfd_write(errand->bell.Number(), 1);
    }).detach();
    underWay_.push_back(errand);
    return errand;
  } catch (const std::system_error& error) {
    RaiseSystemError(error.code().value());
  }
}

}  // namespace kestrava
