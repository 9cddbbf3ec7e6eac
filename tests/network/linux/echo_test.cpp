#include <arpa/inet.h>
#include <bit>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <linux/capability.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "platform/linux/linux_icmp.h"
#include "support/await.h"
#include "support/network_namespace.h"

namespace kestrava::test {

constexpr char kPayload[] = "Echo This";

enum class Road { Raw, Program, Datagram };

/// Sends echoes on one of the roads that the service knows.
class EchoRoad : public NetworkTest, public testing::WithParamInterface<Road> {
 protected:
  void SetUp() override {
    NetworkTest::SetUp();
    if (IsSkipped()) return;
    std::ofstream("/proc/sys/net/ipv4/ping_group_range")
        << (GetParam() == Road::Datagram ? "0 0" : "1 0");
    if (EchoSocket::Open(EchoSocketKind::Datagram).has_value() != (GetParam() == Road::Datagram)) {
      GTEST_SKIP() << "ping sockets can't be switched here";
    }
    AllowRaw(GetParam() != Road::Program);
  }
  void TearDown() override {
    AllowRaw(true);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child process was left behind";
    NetworkTest::TearDown();
  }

  int Echo(const char* address) {
    const IcmpHandle handle = icmp_.IcmpCreateFile();
    const auto number = std::bit_cast<std::int32_t>(inet_addr(address));
    const auto came = Await(
        icmp_.IcmpSendEcho(handle, number, kPayload, nullptr, reply_, sizeof reply_, 200), [this] {
          pollfd watched{waits_.Descriptor(), POLLIN, 0};
          poll(&watched, 1, -1);
          waits_.Dispatch();
        });
    EXPECT_FALSE(waits_.UnderWay());
    EXPECT_EQ(came != 0, reply_.Status == 0);
    EXPECT_EQ(reply_.DataSize, came ? 9 : 0);
    EXPECT_EQ(reply_.RoundTripTime < 10000, came != 0);
    icmp_.IcmpCloseHandle(handle);
    return reply_.Status;
  }

  /// The system's counters of ICMP messages, which change with every one.
  static std::string Counters() {
    std::ifstream file("/proc/self/net/snmp");
    std::string counters;
    for (std::string line; std::getline(file, line);) {
      if (line.starts_with("IcmpMsg:")) counters += line;
    }
    return counters;
  }

  DescriptorWaits waits_;
  LinuxIcmp icmp_{waits_};
  EchoReply reply_{};

 private:
  static void AllowRaw(bool allow) {
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct sets[2];
    syscall(SYS_capget, &header, sets);
    constexpr __u32 kBit = 1U << CAP_NET_RAW;
    sets[0].effective = allow ? sets[0].effective | kBit : sets[0].effective & ~kBit;
    syscall(SYS_capset, &header, sets);
  }
};

TEST_P(EchoRoad, EachMachineGivesItsStatus) {
  const std::vector<std::tuple<const char*, int, bool>> table = {
      {kAnsweringHost, 0, true},         {kPeer, 11010, true},        {kSilentHost, 11010, true},
      {kUnreachable, 11003, true},       {kFarAway, 11013, true},     {kNoHost, 11003, false},
      {kNoNetwork, 11002, false},        {kBroadcast, 11018, false},  {"0.0.0.0", 11018, false},
      {"255.255.255.255", 11018, false}, {"224.0.0.1", 11018, false}, {kAnsweringHost, 0, true}};
  std::this_thread::sleep_for(std::chrono::seconds(1));  // a router errs once a second
  for (const auto& [address, status, sends] : table) {
    const std::string before = Counters();
    EXPECT_EQ(Echo(address), status) << address;
    EXPECT_EQ(Counters() != before, sends) << address;
  }
  EXPECT_EQ(std::string(reply_.Data, 9), kPayload);
}

TEST_P(EchoRoad, NothingButTheAnswerCounts) {
  for (const char* wrong : {"sender", "identifier", "sequence", "payload"}) {
    // ping of iputils 20221126 compares no more of a payload than what follows its 16th byte.
    if (GetParam() == Road::Program && wrong == std::string_view("payload")) continue;
    const PeerProgram peer({"echoes.py", wrong});
    EXPECT_EQ(Echo(kPeer), 11010) << wrong;
  }
  const PeerProgram peer({"echoes.py", "nothing"});
  // The machine may be too busy to answer in time.
  bool answered = false;
  for (int tries = 0; tries < 50 && !answered; ++tries) answered = Echo(kPeer) == 0;
  EXPECT_TRUE(answered);
}

INSTANTIATE_TEST_SUITE_P(Roads, EchoRoad,
                         testing::Values(Road::Raw, Road::Program, Road::Datagram));

}  // namespace kestrava::test
