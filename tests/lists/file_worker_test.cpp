#include <cerrno>
#include <future>
#include <gtest/gtest.h>
#include <poll.h>
#include <thread>

#include "platform/linux/linux_file_worker.h"
#include "platform/runtime_error.h"
#include "support/await.h"

namespace kestrava::test {

using namespace std::chrono_literals;

TEST(FileWorker, LeavesWhatHangsToItself) {
  DescriptorWaits waits;
  std::promise<void> answer;
  const FileWorker::Job hang = [wait = answer.get_future().share()](auto&) { wait.wait(); };
  const auto errorOf = [&](LinuxFileWorker& worker, FileWorker::Job job) {
    const auto run = [&]() -> Task<int> {
      try {
        co_await worker.Run("list", AtEnd::Drop, std::move(job));
      } catch (const RuntimeError& error) {
        co_return error.Number();
      }
      co_return 0;
    };
    return Await(run(), [&] {
      pollfd watched{waits.Descriptor(), POLLIN, 0};
      poll(&watched, 1, -1);
      waits.Dispatch();
    });
  };
  LinuxFileWorker hasty(waits, {.moment = 0ms, .longest = 50ms});
  EXPECT_EQ(errorOf(hasty, hang), ETIMEDOUT);
  EXPECT_EQ(errorOf(hasty, hang), EBUSY) << "what hangs may yet happen to that file";
  LinuxFileWorker patient(waits, {.moment = 0ms, .longest = 1h});
  EXPECT_EQ(errorOf(patient, [&](auto&) { answer.set_value(); }), 0);
  EXPECT_EQ(errorOf(patient, hang), 0);
}

TEST(FileWorker, FinishesAtTheEndWhatItMust) {
  DescriptorWaits waits;
  std::atomic<bool> written = false;
  {
    LinuxFileWorker worker(waits, {.moment = 0ms, .longest = 1h});
    Task<> save = worker.Run("list", AtEnd::Finish, [&](auto&) {
      std::this_thread::sleep_for(50ms);
      written = true;
    });
    save.Start();
  }
  EXPECT_TRUE(written);
}

}  // namespace kestrava::test
