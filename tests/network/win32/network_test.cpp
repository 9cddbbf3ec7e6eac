#include <gtest/gtest.h>
#include <iostream>

#include "network/manners.h"
#include "platform/runtime_error.h"
#include "platform/win32/message_pump.h"
#include "platform/win32/win32_icmp.h"
#include "platform/win32/win32_remote_desktop.h"
#include "platform/win32/windows_api.h"
#include "support/await.h"

namespace kestrava::test {

// The machines are those of support/network.sh; under_wine.sh has one more for each manner.
constexpr const char* kSilentHost = "10.66.2.1";

std::string PeerOf(const Manner& manner) {
  return "10.66.4." + std::to_string(&manner - kManners + 1);
}

TEST(Network, EachMachineGivesItsStatus) {
  Win32EventLoop loop;
  HandleWaits waits(loop);
  Win32Icmp icmp(waits);
  // Where no network is known for an address, this system says no more than that it failed.
  const std::pair<const char*, int> machines[] = {
      {"127.0.0.9", 0},     {"10.66.1.2", 11010}, {kSilentHost, 11010}, {"10.66.3.1", 11003},
      {"10.66.9.1", 11003}, {"10.99.0.1", 11050}, {"0.0.0.0", 11018},   {"255.255.255.255", 11018},
      {"224.0.0.1", 11018}, {"127.0.0.9", 0}};
  for (const auto& [address, status] : machines) {
    const IcmpHandle handle = icmp.IcmpCreateFile();
    EchoReply reply{};
    const auto came = Await(icmp.IcmpSendEcho(handle, static_cast<std::int32_t>(inet_addr(address)),
                                              "Echo This", nullptr, reply, sizeof reply, 200),
                            [&] { ServeNextMessage(loop); });
    EXPECT_EQ(reply.Status, status) << address;
    EXPECT_EQ(came, status == 0 ? 1 : 0) << address;
    EXPECT_EQ(reply.DataSize, status == 0 ? 9 : 0) << address;
    EXPECT_EQ(reply.RoundTripTime < 10000, status == 0) << address;
    EXPECT_TRUE(icmp.IcmpCloseHandle(handle));
  }
}

int Attempt(Win32EventLoop& loop, Win32RemoteDesktop& control, const std::string& server) {
  control.SetServer(server);
  control.Connect();
  try {
    while (control.Connected() == 2) ServeNextMessage(loop);
    return control.Connected();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(control.Connected(), 0) << "the error is told once";
    return error.Number();
  }
}

TEST(Network, EachRemoteDesktopPeerHasItsOutcome) {
  Win32EventLoop loop;
  Win32RemoteDesktop control(loop);
  for (const Manner& manner : kManners) {
    EXPECT_EQ(Attempt(loop, control, PeerOf(manner)), manner.outcome) << manner.end << manner.words;
    control.Disconnect();
    control.SetServer(kSilentHost);
    control.Connect();
    // This peer serves one connection after the other: none was left behind.
    EXPECT_EQ(Attempt(loop, control, PeerOf(std::end(kManners)[-1])), 1);
    control.Disconnect();
    EXPECT_EQ(control.Connected(), 0);
  }
  for (const char* server : {"10.66.1.2", kSilentHost, "10.99.0.1"}) {
    EXPECT_EQ(Attempt(loop, control, server), 0) << server;
  }
  for (const char* server : {"server", "1.2.3.256", "0.0.0.0", "255.255.255.255", "224.0.0.1"}) {
    EXPECT_THROW(Attempt(loop, control, server), RuntimeError) << server;
  }
}

}  // namespace kestrava::test

/// `peers` prints what the peers are to be, each as the arguments of peer.py.
int main(int argc, char** argv) {
  using namespace kestrava::test;

  testing::InitGoogleTest(&argc, argv);
  if (argc == 1) return RUN_ALL_TESTS();
  for (const Manner& manner : kManners) {
    std::cout << manner.end << '|' << manner.words << '|' << manner.pause << '|' << PeerOf(manner)
              << '\n';
  }
  return 0;
}
