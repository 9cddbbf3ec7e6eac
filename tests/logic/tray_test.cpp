#include "support/memory_desktop.h"
#include "tray/failure_report.h"

namespace kestrava::test {

const StoredSettings kInTray = {{"Tray", "1"}};

/// A record's field up to its NUL, or all of it.
template <std::size_t kWidth>
static std::string TextIn(const char (&field)[kWidth]) {
  return {field, std::find(field, field + kWidth, '\0')};
}

TEST(NotificationIcon, IsAddedTellsTheFailureTakesItBackAndGoes) {
  Scenario program(kInTray);
  program.Add(std::string(300, 'x'), "10.0.0.1");
  program.Check();
  ASSERT_TRUE(program.window.tmrBalloon.Enabled());
  program.window.tmrBalloon.Tick.Raise();
  EXPECT_FALSE(program.window.tmrBalloon.Enabled());
  program.window.mnuFileExit.Click.Raise();

  Texts told;
  for (const auto& [message, record] : program.shell.told) {
    EXPECT_EQ(record.hWnd, MemoryShell::kWindow);
    EXPECT_EQ(record.uID, 999);
    told.push_back(std::to_string(message) + " " + std::to_string(record.uFlags) + " " +
                   TextIn(record.szTip) + "|" + TextIn(record.szInfoTitle) + "|" +
                   TextIn(record.szInfo));
  }
  const std::string whole = "Kestrava failed to communicate with the " + std::string(216, 'x');
  EXPECT_EQ(told, (Texts{"0 7 Kestrava||", "4 7 Kestrava||", "1 16 |Kestrava|" + whole, "1 20 ||",
                         "2 0 ||"}));
  const NOTIFYICONDATA& added = program.shell.told.front().second;
  EXPECT_EQ(added.uCallbackMessage, 32789);
  EXPECT_EQ(added.hIcon, MemoryShell::kIcon);
  EXPECT_EQ(program.shell.calls, (Texts{"proc 101", "proc 100"}));
}

TEST(TrayMessages, AnswersTheIconAndHandsOnTheRest) {
  Scenario program(kInTray);
  MemoryShell& shell = program.shell;
  constexpr std::int32_t kWindow = MemoryShell::kWindow;
  EXPECT_EQ(shell.procedure(5, 32789, 0, 0x205), 100 + 5 + 32789 + 0x205);
  EXPECT_EQ(shell.procedure(kWindow, 15, 0, 3), 100 + kWindow + 15 + 3);
  shell.calls.clear();
  for (const std::int32_t other : {0x201, 0x202, 0x203, 0x204, 0x404, 0}) {
    EXPECT_EQ(shell.procedure(kWindow, 32789, 0, other), 0);
  }
  EXPECT_EQ(shell.procedure(kWindow, 32789, 0, 0x405), 0) << "no pass has reported yet";
  EXPECT_TRUE(program.window.State().InTray);
  EXPECT_TRUE(shell.calls.empty());

  program.Check();
  EXPECT_EQ(program.window.State().BalloonAction, "ShowMain") << "even with nothing to report";
  EXPECT_EQ(shell.told.size(), 2U);
  EXPECT_EQ(shell.procedure(kWindow, 32789, 0, 0x405), 0);
  EXPECT_FALSE(program.window.State().InTray);

  // Exit picked in the menu: the hook goes while its procedure is still running.
  shell.onPopup = [&] { program.window.mnuFileExit.Click.Raise(); };
  EXPECT_EQ(shell.procedure(kWindow, 32789, 0, 0x205), 0);
  EXPECT_EQ(shell.calls, (Texts{"front 4711", "popup mnufile mnuFileRestore", "proc 100"}));
}

TEST(Reports, NameTheOneFailureOrCountThem) {
  const std::string more = "\r\nClick Here to See More Information";
  const std::pair<Texts, std::string> cases[] = {
      {{"ReCONNECTIONs"}, "Kestrava failed to communicate with the ReCONNECTIONs"},
      {{""}, "Kestrava failed to communicate with the  Connection" + more},
      {{"A", "A"}, "Kestrava failed to communicate with 2 of your Connections" + more}};
  for (const auto& [names, text] : cases) EXPECT_EQ(FailureReport(names), text);
}

TEST(Reports, AreNotMadeWhileTheWindowShowsOrWithTipsOff) {
  for (const auto& stored : {StoredSettings{{"Tips", "1"}}, {{"Tips", "0"}, {"Tray", "1"}}}) {
    Scenario program(stored);
    program.Add("A", "10.0.0.1");
    program.Check();
    EXPECT_EQ(program.window.State().FailedConnections, Texts{"A"});
    EXPECT_EQ(program.shell.told.size(), 2U) << "the icon was added, and no more";
  }
}

}  // namespace kestrava::test
