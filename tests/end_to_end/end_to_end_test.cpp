#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <fstream>
#include <gtest/gtest.h>

#include "monitor/frmMain.h"
#include "platform/qt/linux_desktop.h"
#include "support/network_namespace.h"
#include "support/test_server.h"

namespace kestrava::test {
namespace {

/// The whole program in real widgets, with real files, settings and network, worked by a user.
class Program {
 public:
  Program() {
    desktop_.Windows().Load(main);
    desktop_.Windows().Show(main);
  }
  ~Program() {
    Widget("frmMain")->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  static QWidget* Widget(const QString& name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == name) return window;
      if (auto* widget = window->findChild<QWidget*>(name)) return widget;
    }
    return nullptr;
  }
  static void Click(const QString& button) { QTest::mouseClick(Widget(button), Qt::LeftButton); }
  static void Pick(const QString& entry) {
    Widget("frmMain")->findChild<QAction*>(entry)->trigger();
  }

  /// What the user does, one after the other, in the dialogs that come up next.
  static void InDialogs(std::deque<std::function<void(QWidget*)>> acts) {
    QTimer::singleShot(50, [acts = std::move(acts)]() mutable {
      QWidget* dialog = QApplication::activeModalWidget();
      if (!dialog) return InDialogs(std::move(acts));
      const auto act = std::move(acts.front());
      acts.pop_front();
      if (!acts.empty()) InDialogs(std::move(acts));
      act(dialog);
    });
  }
  static void Type(QWidget* dialog, const char* field, const QString& text) {
    auto* edit = field ? dialog->findChild<QLineEdit*>(field) : dialog->findChild<QLineEdit*>();
    edit->setFocus();
    edit->selectAll();
    edit->insert(text);
  }

  void Add(const QString& name, const QString& address) {
    InDialogs({[=](QWidget* dialog) {
      Type(dialog, "txtName", name);
      Type(dialog, "txtAddress", address);
      QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    }});
    Click("cmdAdd");
  }
  std::string Cell(int row, int col) const { return main.grdServers.TextAt(row, col); }

 private:
  LinuxDesktop desktop_;

 public:
  frmMain main{desktop_.Services()};
};

class EndToEnd : public testing::Test {
 protected:
  EndToEnd() { qputenv("XDG_CONFIG_HOME", folder_.path().toUtf8()); }

  QTemporaryDir folder_;
};

TEST_F(EndToEnd, EveryKindOfMachineShowsItsOutcome) {
  if (!NetworkNamespaceProblem().empty()) GTEST_SKIP() << NetworkNamespaceProblem();
  Program program;
  const std::pair<const char*, const char*> rows[] = {
      {kAnsweringHost, "Online (Ping Response)"},  {kPeer, "Online (RDP Response)"},
      {kSilent, "Offline (No Response)"},          {kUnreachable, "Offline (No Response)"},
      {"0.0.0.0", "Offline (ip bad destination)"}, {"1..2.3", "Offline ()"}};
  for (const auto& [address, status] : rows) program.Add("machine", address);
  const auto check = [&] {
    Program::Click("cmdCheck");
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
    EXPECT_EQ(check(), "Offline (No Response)");
  }
  const TestServer dropping({0, "", Manner::Closes});
  EXPECT_EQ(check(), "Offline (ip req timed out)");
}

TEST_F(EndToEnd, AListAndThePreferencesOutliveTheProgram) {
  const QString list = folder_.filePath("my list, \u00E4.kvl");
  {
    Program program;
    program.Add("First", "127.0.0.1");
    program.Add("Second", "1..2.3");
    Program::Pick("mnuFileAuto");
    Program::InDialogs({[&](QWidget* dialog) {
                          Program::Type(dialog, nullptr, list);
                          QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
                        },
                        [](QWidget* box) { box->close(); }});
    Program::Pick("mnuFileSave");
    Program::InDialogs({[](QWidget* dialog) {
      Program::Type(dialog, "txtInterval", "77");
      QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    }});
    Program::Pick("mnuConnPref");
  }
  Program program;
  ASSERT_EQ(program.main.grdServers.Rows(), 3);
  EXPECT_EQ(program.Cell(2, 1), "Second");
  EXPECT_EQ(program.main.State().LastListFile, list.toStdString());
  EXPECT_EQ(program.main.State().CheckInterval, 77);
  EXPECT_TRUE(program.main.mnuFileAuto.Checked());
}

}  // namespace
}  // namespace kestrava::test

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  // A namespace is made ahead of the first thread.
  kestrava::test::NetworkNamespaceProblem();
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
