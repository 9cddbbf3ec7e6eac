#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "desktop/user.h"
#include "monitor/frmMain.h"
#include "platform/qt/linux_desktop.h"
#include "support/network_namespace.h"
#include "support/test_server.h"

namespace kestrava::test {
namespace {

/// A namespace is made ahead of the first thread.
const std::string& networkProblem = NetworkNamespaceProblem();

/// The whole program in real widgets, with real files, settings and network, worked by a user.
struct Program {
  Program() {
    desktop.Windows().Load(main);
    desktop.Windows().Show(main);
  }
  ~Program() {
    Widget("frmMain")->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void Add(const QString& address) {
    InDialogs({Enter(address, "txtAddress")});
    Click("cmdAdd");
  }
  std::string Cell(int row, int col) const { return main.grdServers.TextAt(row, col); }

  LinuxDesktop desktop;
  frmMain main{desktop.Services()};
};

class EndToEnd : public testing::Test {
 protected:
  EndToEnd() { qputenv("XDG_CONFIG_HOME", folder_.path().toUtf8()); }

  QTemporaryDir folder_;
};

TEST_F(EndToEnd, EveryKindOfMachineShowsItsOutcome) {
  if (!networkProblem.empty()) GTEST_SKIP() << networkProblem;
  Program program;
  const std::pair<const char*, const char*> rows[] = {
      {kAnsweringHost, "Online (Ping Response)"},  {kPeer, "Online (RDP Response)"},
      {kSilentHost, "Offline (No Response)"},      {kUnreachable, "Offline (No Response)"},
      {"0.0.0.0", "Offline (ip bad destination)"}, {"1..2.3", "Offline ()"}};
  for (const auto& [address, status] : rows) program.Add(address);
  const auto check = [&] {
    Click("cmdCheck");
    return program.Cell(2, 3);
  };
  {
    const RealRemoteDesktopServer server;
    for (int tries = 0; tries < 20 && check() != "Online (RDP Response)"; ++tries) {
    }
    for (int row = 1; row <= std::ssize(rows); ++row) {
      EXPECT_EQ(program.Cell(row, 3), rows[row - 1].second) << rows[row - 1].first;
    }
  }
  EXPECT_EQ(check(), "Offline (No Response)") << "refused";
  {
    const TestServer notRdp({0, "SSH-2.0-x\r\n", Manner::Stays});
    EXPECT_EQ(check(), "Offline (No Response)") << "an open port is not enough";
  }
  const TestServer dropping({0, "", Manner::Closes});
  EXPECT_EQ(check(), "Offline (ip req timed out)");
}

TEST_F(EndToEnd, AListAndThePreferencesOutliveTheProgram) {
  const QString list = folder_.filePath("my list, \u00E4.kvl");
  {
    Program program;
    program.Add("127.0.0.1");
    program.Add("1..2.3");
    Pick("mnuFileAuto");
    InDialogs({Enter(list), closeDialog, Enter("77", "txtInterval")});
    Pick("mnuFileSave");
    Pick("mnuConnPref");
  }
  const Program program;
  ASSERT_EQ(program.main.grdServers.Rows(), 3);
  EXPECT_EQ(program.Cell(2, 2), "1..2.3");
  EXPECT_EQ(program.main.State().LastListFile, list.toStdString());
  EXPECT_EQ(program.main.State().CheckInterval, 77);
  EXPECT_TRUE(program.main.mnuFileAuto.Checked());
}

}  // namespace
}  // namespace kestrava::test
