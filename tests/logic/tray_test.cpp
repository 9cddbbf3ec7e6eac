#include <gtest/gtest.h>

#include "support/memory_desktop.h"
#include "tray/failure_report.h"

namespace kestrava::test {
namespace {

const StoredSettings kInTray = {{"Tray", "1"}};

/// A field as the record holds it: text, one NUL, blanks.
std::string Field(const std::string& text, std::size_t width) {
  std::string field = text + '\0';
  field.resize(std::max(width, field.size()), ' ');
  return field.substr(0, width);
}

NOTIFYICONDATA Record(std::int32_t flags) {
  NOTIFYICONDATA record{};
  record.cbSize = 504;
  record.hWnd = MemoryShell::kWindow;
  record.uID = 999;
  record.uFlags = flags;
  return record;
}

void Put(const std::string& text, char* field, std::size_t width) {
  Field(text, width).copy(field, width);
}

void ExpectTold(const std::pair<std::int32_t, NOTIFYICONDATA>& told, std::int32_t message,
                const NOTIFYICONDATA& record) {
  EXPECT_EQ(told.first, message);
  EXPECT_EQ(std::memcmp(&told.second, &record, sizeof(record)), 0) << "message " << message;
}

TEST(NotificationIcon, TellsExactlyTheseRecords) {
  Scenario program(kInTray);
  program.Add(std::string(300, 'x'), "10.0.0.1");
  program.window.cmdCheck.Press();
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
  Put("Kestrava", add.szTip, 128);
  ExpectTold(told[0], 0, add);
  ExpectTold(told[1], 4, add);
  NOTIFYICONDATA balloon = Record(16);
  balloon.dwInfoFlags = 4;
  Put("Kestrava", balloon.szInfoTitle, 64);
  Put("Kestrava failed to communicate with the " + std::string(300, 'x'), balloon.szInfo, 256);
  ExpectTold(told[2], 1, balloon);
  NOTIFYICONDATA hide = Record(20);
  hide.uTimeout = 3;
  Put("", hide.szTip, 128);
  ExpectTold(told[3], 1, hide);
  ExpectTold(told[4], 2, Record(0));
  EXPECT_EQ(program.shell.calls, (std::vector<std::string>{"proc 101", "proc 100"}));
  EXPECT_EQ(program.shell.current, MemoryShell::kFirstProcedure);
}

TEST(NotificationIcon, ChoosesTheRecordByTheShellsVersion) {
  const struct {
    std::int16_t major;
    std::int32_t size, query, bytes;
    int reads;
  } cases[] = {{6, 52, 1, 504, 1}, {10, 52, 1, 504, 1}, {5, 52, 1, 488, 2}, {4, 52, 1, 88, 2},
               {-1, 52, 1, 88, 2}, {6, 0, 1, 88, 2},    {6, -1, 1, 88, 2},  {6, 52, 2, 88, 2}};
  for (const auto& expected : cases) {
    Scenario program({}, [&](Scenario& scenario) {
      scenario.shell.majorVersion = expected.major;
      scenario.shell.versionSize = expected.size;
      scenario.shell.queryResult = expected.query;
    });
    program.window.mnuFileExit.Click.Raise();
    for (const auto& [message, record] : program.shell.told) {
      EXPECT_EQ(record.cbSize, expected.bytes);
    }
    EXPECT_EQ(program.shell.versionReads, expected.reads) << "worked out once in a run";
  }
}

TEST(NotificationIcon, WithoutIconHooksNothing) {
  Scenario program({}, [](Scenario& scenario) { scenario.shell.addResult = 2; });
  program.window.mnuFileExit.Click.Raise();
  EXPECT_EQ(program.shell.told.size(), 2U) << "an add and a delete";
  EXPECT_TRUE(program.shell.calls.empty());
}

TEST(TrayMessages, AnswersTheIconAndHandsOnTheRest) {
  Scenario program(kInTray);
  MemoryShell& shell = program.shell;
  constexpr std::int32_t kWindow = MemoryShell::kWindow;
  EXPECT_EQ(shell.Send(5, 32789, 0x205), 100 + 5 + 32789 + 0x205);
  EXPECT_EQ(shell.Send(kWindow, 15, 3), 100 + kWindow + 15 + 3);
  shell.calls.clear();
  for (const std::int32_t other : {0x201, 0x202, 0x203, 0x204, 0x404, 0}) {
    EXPECT_EQ(shell.Send(kWindow, 32789, other), 0);
  }
  EXPECT_EQ(shell.Send(kWindow, 32789, 0x405), 0) << "no pass has reported yet";
  EXPECT_TRUE(program.window.State().InTray);
  EXPECT_TRUE(shell.calls.empty());

  program.window.cmdCheck.Press();
  EXPECT_EQ(program.window.State().BalloonAction, "ShowMain") << "even with nothing to report";
  EXPECT_EQ(shell.told.size(), 2U);
  EXPECT_EQ(shell.Send(kWindow, 32789, 0x405), 0);
  EXPECT_FALSE(program.window.State().InTray);

  EXPECT_EQ(shell.Send(kWindow, 32789, 0x205), 0);
  EXPECT_EQ(shell.calls, (std::vector<std::string>{"front 4711", "popup mnufile mnuFileRestore"}));
  // Exit picked in the menu: the hook goes while its procedure is still running.
  shell.onPopup = [&] { program.window.mnuFileExit.Click.Raise(); };
  EXPECT_EQ(shell.Send(kWindow, 32789, 0x205), 0);
  EXPECT_EQ(shell.current, MemoryShell::kFirstProcedure);
  shell.onPopup = [] { throw RuntimeError(1, "no menu"); };
  EXPECT_EQ(shell.Send(kWindow, 32789, 0x205), 0);
}

TEST(TrayMode, HidesTheWindowAndShortensTheMenu) {
  const std::function<void(Scenario&)> ways[] = {
      [](Scenario& program) { program.window.mnuFileTray.Click.Raise(); },
      [](Scenario& program) {
        program.window.SetWindowState(WindowState::Minimized);
        program.window.Resize.Raise();
      }};
  const auto menu = [](const frmMain& window) {
    std::string visible;
    for (const MenuEntry* entry : window.Menu()) {
      const std::string name = entry->Spec().name;
      if (name.starts_with("mnuFile") && entry->Visible()) visible += name.substr(7) + " ";
    }
    return visible;
  };
  const char* normal = "New Brk1 Load Save Brk2 Auto Brk3 Tray Brk4 Exit ";
  for (const auto& enter : ways) {
    Scenario program;
    EXPECT_EQ(menu(program.window), normal);
    enter(program);
    EXPECT_TRUE(program.window.State().InTray);
    EXPECT_FALSE(program.window.Visible());
    EXPECT_EQ(menu(program.window), "Restore Brk4 Exit ");
    program.window.mnuFileRestore.Click.Raise();
    EXPECT_FALSE(program.window.State().InTray);
    EXPECT_TRUE(program.window.Visible());
    EXPECT_EQ(program.window.WindowState(), WindowState::Normal);
    EXPECT_EQ(menu(program.window), normal);
  }
  for (const char* other : {"-1", "2", "true", ""}) {
    EXPECT_FALSE(Scenario(StoredSettings{{"Tray", other}}).window.State().InTray) << other;
  }
}

TEST(Reports, ComeOnlyFromAPassInTheTrayWithBalloonsWanted) {
  for (const bool inTray : {false, true}) {
    for (const bool tips : {false, true}) {
      Scenario program({{"Tray", inTray ? "1" : "0"}, {"Tips", tips ? "1" : "0"}});
      program.Add("A", "10.0.0.1");
      program.window.cmdCheck.Press();
      EXPECT_EQ(program.shell.told.size(), inTray && tips ? 3U : 2U);
      EXPECT_EQ(program.window.tmrBalloon.Enabled(), inTray && tips);
      EXPECT_EQ(program.window.State().BalloonAction, inTray && tips ? "ShowMain" : "");
      EXPECT_EQ(program.Cell(1, 3), "Offline (No Response)");
    }
  }
}

TEST(Reports, NameTheOneFailureOrCountThem) {
  const std::string more = "\r\nClick Here to See More Information";
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"Mail Server"}, "Kestrava failed to communicate with the Mail Server Connection" + more},
      {{"CONNECTION to head office"},
       "Kestrava failed to communicate with the CONNECTION to head office"},
      {{"Reconnections"}, "Kestrava failed to communicate with the Reconnections"},
      {{""}, "Kestrava failed to communicate with the  Connection" + more},
      {{"A", "A"}, "Kestrava failed to communicate with 2 of your Connections" + more}};
  for (const auto& [names, text] : cases) EXPECT_EQ(FailureReport(names), text);
}

}  // namespace
}  // namespace kestrava::test
