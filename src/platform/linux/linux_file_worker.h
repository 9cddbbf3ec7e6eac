#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "platform/file_worker.h"
#include "platform/linux/descriptor_waits.h"

namespace kestrava {

/// Runs each job on a thread of its own, the only ones beside the event loop's. Nothing can end a
/// thread that waits for a disk, so it is left behind, and the end of the process doesn't wait for
/// it. A thread touches nothing but what its job holds.
class LinuxFileWorker final : public FileWorker {
 public:
  struct Patience {
    std::chrono::milliseconds moment = kShortWait;
    std::chrono::milliseconds longest = kLongestJob;  ///< the job's error is ETIMEDOUT then
  };

  explicit LinuxFileWorker(DescriptorWaits& waits) : LinuxFileWorker(waits, Patience()) {}
  LinuxFileWorker(DescriptorWaits& waits, Patience patience) : waits_(waits), patience_(patience) {}
  /// Gives the jobs that are to be finished the rest of their time.
  ~LinuxFileWorker() override;

  Task<> Run(std::string name, AtEnd atEnd, Job job) override;

 private:
  struct RunningJob;

  std::shared_ptr<RunningJob> Send(std::string name, AtEnd atEnd, Job job);

  DescriptorWaits& waits_;
  const Patience patience_;
  std::vector<std::shared_ptr<RunningJob>> underWay_;  ///< and some that are done
};

}  // namespace kestrava
