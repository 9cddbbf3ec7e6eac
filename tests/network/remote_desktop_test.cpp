#include <arpa/inet.h>
#include <chrono>
#include <poll.h>
#include <thread>

#include "platform/linux/dotted_address.h"
#include "platform/linux/linux_remote_desktop.h"
#include "platform/runtime_error.h"
#include "support/network_namespace.h"
#include "support/test_server.h"

namespace kestrava::test {
namespace {

using namespace std::literals;
using std::chrono::steady_clock;

const std::string kBare = "\3\0\0\13\6\xD0\0\0\x12\x34\0"s;
const std::string kConfirm = "\3\0\0\23\16\xD0\0\0\x12\x34\0\2\1\10\0\1\0\0\0"s;
const std::string kFailure = "\3\0\0\23\16\xD0\0\0\x12\x34\0\3\0\10\0\5\0\0\0"s;

TEST(X224, OnlyAWellFormedConfirmIsOne) {
  const auto judge = [](const std::string& text) {
    return JudgeConfirm({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  };
  for (const std::string& confirm : {kBare, kConfirm, kFailure}) {
    EXPECT_EQ(judge(confirm), ConfirmState::Confirm);
    EXPECT_EQ(judge(confirm + '\0'), ConfirmState::NotRdp);
    for (std::size_t size = 0; size < confirm.size(); ++size) {
      EXPECT_EQ(judge(confirm.substr(0, size)), ConfirmState::Incomplete) << size;
    }
    for (const std::size_t fixed : {0U, 2U, 3U, 4U, 5U, 10U}) {
      std::string changed = confirm;
      changed[fixed] ^= 0x10;
      EXPECT_EQ(judge(changed), ConfirmState::NotRdp) << fixed;
    }
  }
}

TEST(DottedAddress, NothingElseIsOne) {
  for (const char* text : {"192.168.1.10", " 192.168.001.010  "}) {
    EXPECT_EQ(ParseDottedAddress(text), inet_addr("192.168.1.10")) << text;
  }
  for (const char* text : {"", " ", "server", "1.2.3", "1.2.3.4.5", "1..2.3", "1.2.3.", "1.2.3.256",
                           "1.2.3.0004", "1. 2.3.4", "-1.0.0.1", "+1.0.0.1", "0x7f.0.0.1"}) {
    EXPECT_FALSE(ParseDottedAddress(text)) << text;
  }
}

class RemoteDesktopPeers : public NetworkTest {
 protected:
  /// @return what `Connected` reads after the attempt, or the number of its error.
  static int Attempt(LinuxRemoteDesktop& control, const char* server) {
    control.SetServer(server);
    control.Connect();
    for (const auto limit = steady_clock::now() + 8s; control.UnderWay();) {
      EXPECT_LT(steady_clock::now(), limit);
      pollfd watched{control.Descriptor(), POLLIN, 0};
      poll(&watched, 1, 9000);
      control.Dispatch();
    }
    try {
      return control.Connected();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(control.Connected(), 0) << "the error is told once";
      return error.Number();
    }
  }
};

TEST_F(RemoteDesktopPeers, EachHasItsOutcomeInBoundedTime) {
  LinuxRemoteDesktop control;
  for (const Manner& manner :
       std::vector<Manner>{{0, "SSH-2.0-x\r\n", Manner::Stays},
                           {0, kConfirm, Manner::Stays, 400ms},
                           {0, kConfirm + std::string(9999999, '\0'), Manner::Stays},
                           {0, "", Manner::Stays},
                           {kErrorPeerDropped, "", Manner::Closes},
                           {kErrorPeerDropped, kConfirm.substr(0, 9), Manner::Closes},
                           {kErrorPeerDropped, "", Manner::Resets},
                           {1, kFailure, Manner::Closes},
                           {1, kBare, Manner::Stays, 5ms}}) {
    {
      const TestServer server(manner);
      EXPECT_EQ(Attempt(control, kPeer), manner.outcome) << manner.words.substr(0, 20);
      control.Disconnect();
    }
    const TestServer server({1, kConfirm, Manner::Stays});
    control.SetServer(kSilent);
    control.Connect();
    EXPECT_EQ(Attempt(control, kPeer), 1) << "in place of the attempt before";
    control.Disconnect();
    EXPECT_EQ(control.Connected(), 0);
  }
  for (const char* server : {kPeer, kSilent, kNoNetwork, kBroadcast}) {
    EXPECT_EQ(Attempt(control, server), 0) << server;
  }
  for (const char* server : {"server", "0.0.0.0", "255.255.255.255", "224.0.0.1"}) {
    EXPECT_THROW(Attempt(control, server), RuntimeError) << server;
  }
}

TEST_F(RemoteDesktopPeers, ARealServerConnects) {
  const RealRemoteDesktopServer server;
  LinuxRemoteDesktop control;
  int outcome = 0;
  for (int tries = 0; tries < 100 && outcome != 1; ++tries) {
    std::this_thread::sleep_for(100ms);
    outcome = Attempt(control, kPeer);
  }
  EXPECT_EQ(outcome, 1);
}

}  // namespace
}  // namespace kestrava::test
