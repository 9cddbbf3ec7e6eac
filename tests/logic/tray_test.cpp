#include "support/memory_desktop.h"
#include "tray/failure_report.h"

namespace kestrava::test {

const StoredSettings kInTray = {{"Tray", "1"}};

static NOTIFYICONDATA Record(std::int32_t flags) {
  NOTIFYICONDATA record{};
  record.cbSize = 504;
  record.hWnd = MemoryShell::kWindow;
  record.uID = 999;
  record.uFlags = flags;
  return record;
}

/// Fills a field as the record holds it: text, one NUL, blanks.
template <std::size_t kWidth>
static void Put(std::string text, char (&field)[kWidth]) {
  text += '\0';
  text.resize(std::max(kWidth, text.size()), ' ');
  text.copy(field, kWidth);
}

TEST(NotificationIcon, TellsExactlyTheseRecords) {
  Scenario program(kInTray);
  program.Add(std::string(300, 'x'), "10.0.0.1");
  program.Check();
  ASSERT_TRUE(program.window.tmrBalloon.Enabled());
  program.window.tmrBalloon.Tick.Raise();
  EXPECT_FALSE(program.window.tmrBalloon.Enabled());
  program.window.mnuFileExit.Click.Raise();

  const auto& told = program.shell.told;
  ASSERT_EQ(told.size(), 5U);
  NOTIFYICONDATA add = Record(7);
  add.uCallbackMessage = 32789;
  add.hIcon = MemoryShell::kIcon;
  add.dwState = 2;
  add.uTimeout = 3;
  Put("Kestrava", add.szTip);
  NOTIFYICONDATA balloon = Record(16);
  balloon.dwInfoFlags = 4;
  Put("Kestrava", balloon.szInfoTitle);
  Put("Kestrava failed to communicate with the " + std::string(300, 'x'), balloon.szInfo);
  NOTIFYICONDATA hide = Record(20);
  hide.uTimeout = 3;
  Put("", hide.szTip);
  const std::pair<std::int32_t, NOTIFYICONDATA> expected[] = {
      {0, add}, {4, add}, {1, balloon}, {1, hide}, {2, Record(0)}};
  for (std::size_t call = 0; call < 5; ++call) {
    const auto& [message, record] = expected[call];
    EXPECT_EQ(told[call].first, message);
    EXPECT_EQ(std::memcmp(&told[call].second, &record, sizeof(record)), 0) << "call " << call;
  }
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

}  // namespace kestrava::test
