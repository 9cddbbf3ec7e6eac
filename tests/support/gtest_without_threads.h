#pragma once

// GoogleTest waits for a thread that starts by std::mutex, which Debian's compiler for Windows
// (win32 threads) hasn't got. No test starts a thread, so nobody waits.
#define GTEST_HAS_NOTIFICATION_ 1

namespace testing::internal {

struct Notification {
  void Notify() {}
  void WaitForNotification() {}
};

}  // namespace testing::internal
