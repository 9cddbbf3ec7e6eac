#include "desktop/desktop.h"
#include "support/network_namespace.h"

namespace kestrava::test {

/// A namespace is made ahead of the first thread.
const std::string& networkProblem = NetworkNamespaceProblem();

TEST(EndToEnd, EveryKindOfMachineShowsItsOutcome) {
  if (!networkProblem.empty()) GTEST_SKIP() << networkProblem;
  const Desktop desktop;
  const std::pair<const char*, const char*> rows[] = {
      {kAnsweringHost, "Online (Ping Response)"},  {kPeer, "Online (RDP Response)"},
      {kSilentHost, "Offline (No Response)"},      {kUnreachable, "Offline (No Response)"},
      {"0.0.0.0", "Offline (ip bad destination)"}, {"1..2.3", "Offline ()"}};
  for (const auto& [address, status] : rows) Add(address);
  const auto check = [&] {
    desktop.Check();
    return desktop.Cell(2, 3);
  };
  {
    const PeerProgram server({"network.sh", "xrdp"});
    for (int tries = 0; tries < 20 && check() != "Online (RDP Response)"; ++tries) {
    }
    for (int row = 1; row <= std::ssize(rows); ++row) {
      EXPECT_EQ(desktop.Cell(row, 3), rows[row - 1].second) << rows[row - 1].first;
    }
  }
  EXPECT_EQ(check(), "Offline (No Response)") << "refused";
  {
    const PeerProgram slow({"peer.py", "stays", "0300000b06d00000123400", "0.05"});
    EXPECT_EQ(check(), "Online (RDP Response)") << "the attempt is given its time";
  }
  const PeerProgram notRdp({"peer.py", "stays", "5353482d322e302d780d0a", "0"});
  EXPECT_EQ(check(), "Offline (No Response)") << "an open port is not enough";
}

}  // namespace kestrava::test
