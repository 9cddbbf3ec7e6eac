#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/file_worker.h"
#include "platform/win32/handle_waits.h"

namespace kestrava {

/// Runs each job on a thread of its own, beside the event loop's. Nothing can end a thread that
/// waits for a disk, so it is left to itself, and the end of the process doesn't wait for it. A
/// thread touches nothing but what its job holds.
class Win32FileWorker final : public FileWorker {
 public:
  explicit Win32FileWorker(HandleWaits& waits) : waits_(waits) {}
  /// Gives the jobs that are to be finished the rest of their time.
  ~Win32FileWorker() override;

  Task<> Run(std::string name, AtEnd atEnd, Job job) override;

 private:
  struct RunningJob;

  std::shared_ptr<RunningJob> Send(std::string name, AtEnd atEnd, Job job);

  HandleWaits& waits_;
  std::vector<std::shared_ptr<RunningJob>> underWay_;  ///< and some that are done
};

}  // namespace kestrava
