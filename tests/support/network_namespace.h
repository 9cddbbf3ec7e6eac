#pragma once

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kestrava::test {

/// The machines of the test's own network. All of 127.0.0.0/8 answers echoes.
inline constexpr char kAnsweringHost[] = "127.0.0.9";
inline constexpr char kPeer[] = "10.66.1.2";  ///< answers no echo; runs the programs that serve
inline constexpr char kSilentHost[] = "10.66.2.1";   ///< a black hole
inline constexpr char kUnreachable[] = "10.66.3.1";  ///< a router says: host unreachable
inline constexpr char kFarAway[] = "10.66.5.1";      ///< a router says: time to live exceeded
inline constexpr char kNoHost[] = "10.66.9.1";       ///< this system says: no route to host
inline constexpr char kNoNetwork[] = "10.99.0.1";    ///< this system says: network unreachable
inline constexpr char kBroadcast[] = "10.66.1.255";

/// Puts this process into a network of its own, at the first call, which must come before the first
/// thread. No packet leaves it.
/// @return empty, or why that can't be done here, so that the test is skipped.
const std::string& NetworkNamespaceProblem();

/// A program of the tests that serves on the peer until the object goes.
class PeerProgram {
 public:
  /// Returns when the program is ready: when it has said something.
  explicit PeerProgram(std::vector<std::string> words);
  ~PeerProgram();

 private:
  int process_ = 0;
};

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
