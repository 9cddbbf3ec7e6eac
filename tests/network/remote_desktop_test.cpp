#include <chrono>
#include <poll.h>
#include <thread>

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
                           {0, "\3\0\0\13\6\xE0\0\0\x12\x34\0"s, Manner::Stays},
                           {0, "\3\0\0\13\7\xD0\0\0\x12\x34\0"s, Manner::Stays},
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
    control.SetServer(kSilentHost);
    control.Connect();
    EXPECT_EQ(Attempt(control, kPeer), 1) << "in place of the attempt before";
    control.Disconnect();
    EXPECT_EQ(control.Connected(), 0);
  }
  for (const char* server : {kPeer, kSilentHost, kNoNetwork, kBroadcast}) {
    EXPECT_EQ(Attempt(control, server), 0) << server;
  }
  for (const char* server : {"server", "1.2.3.256", "0.0.0.0", "255.255.255.255", "224.0.0.1"}) {
    EXPECT_THROW(Attempt(control, server), RuntimeError) << server;
  }
}

}  // namespace
}  // namespace kestrava::test
