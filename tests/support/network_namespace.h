#pragma once

#include <algorithm>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace kestrava::test {

/// The machines of the test's own network. All of 127.0.0.0/8 answers echoes.
inline constexpr char kAnsweringHost[] = "127.0.0.9";
inline constexpr char kPeer[] = "10.66.1.2";        ///< answers no echo; what runs `OnPeer`, serves
inline constexpr char kSilentHost[] = "10.66.2.1";  ///< a black hole
inline constexpr char kUnreachable[] = "10.66.3.1";  ///< a router says: host unreachable
inline constexpr char kFarAway[] = "10.66.5.1";      ///< a router says: time to live exceeded
inline constexpr char kNoHost[] = "10.66.9.1";       ///< this system says: no route to host
inline constexpr char kNoNetwork[] = "10.99.0.1";    ///< this system says: network unreachable
inline constexpr char kBroadcast[] = "10.66.1.255";

/// Leaves the namespaces of the kinds `flags`, as `unshare` does: as root, or else as the root of a
/// user namespace.
/// @return whether that can be done here.
bool Unshare(int flags);

/// Puts this process into a network of its own, at the first call, which must come before the first
/// thread. No packet leaves it.
/// @return empty, or why that can't be done here, so that the test is skipped.
const std::string& NetworkNamespaceProblem();

/// Sockets that `act` makes and programs that it starts are the peer's.
void OnPeer(const std::function<void()>& act);

/// A test in the network of its own, that gives every descriptor back.
class NetworkTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!NetworkNamespaceProblem().empty()) GTEST_SKIP() << NetworkNamespaceProblem();
    descriptors_ = CountDescriptors();
  }
  void TearDown() override { EXPECT_TRUE(IsSkipped() || CountDescriptors() == descriptors_); }

 private:
  static std::ptrdiff_t CountDescriptors() {
    return std::ranges::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                                 std::filesystem::directory_iterator());
  }

  std::ptrdiff_t descriptors_ = 0;
};

}  // namespace kestrava::test
