#include <poll.h>

#include "network/manners.h"
#include "platform/linux/linux_remote_desktop.h"
#include "platform/runtime_error.h"
#include "support/network_namespace.h"

namespace kestrava::test {

class RemoteDesktopPeers : public NetworkTest {
 protected:
  /// @return what `Connected` reads after the attempt, or the number of its error.
  static int Attempt(LinuxRemoteDesktop& control, const char* server) {
    control.SetServer(server);
    control.Connect();
    const auto serve = [&control](int milliseconds) {
      pollfd watched{control.Descriptor(), POLLIN, 0};
      if (poll(&watched, 1, milliseconds) == 1) control.Dispatch();
    };
    while (control.UnderWay()) serve(-1);
    serve(20);  // a peer that closes after its answer does so ahead of the look at it
    try {
      return control.Connected();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(control.Connected(), 0) << "the error is told once";
      return error.Number();
    }
  }
};

TEST_F(RemoteDesktopPeers, EachHasItsOutcome) {
  LinuxRemoteDesktop control;
  for (const auto& [outcome, end, words, pause] : kManners) {
    {
      const PeerProgram server({"peer.py", end, words, pause});
      EXPECT_EQ(Attempt(control, kPeer), outcome) << end << words;
      control.Disconnect();
    }
    const PeerProgram server({"peer.py", "stays", kConfirm, "0"});
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

}  // namespace kestrava::test
