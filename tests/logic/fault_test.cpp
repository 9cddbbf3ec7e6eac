#include <set>

#include "support/memory_desktop.h"

namespace kestrava::test {

using Lines = std::set<std::string>;

const std::string kList =
    "ZR_Kestrava_ConnectionList\r\n"
    "A,10.0.0.1,Unchecked,Enabled,Unchecked\r\n"
    "B,10.0.0.2,Unchecked,Enabled,Unchecked\r\n"
    "C,10.0.0.3,Unchecked,Enabled,Unchecked\r\n";
const std::string kCheckedList =
    "ZR_Kestrava_ConnectionList\r\n"
    "A,10.0.0.1,Online (Ping Response),Enabled,03/09/26 14:00:00\r\n"
    "B,10.0.0.2,Online (RDP Response),Enabled,03/09/26 14:00:00\r\n"
    "C,10.0.0.3,Offline (ip dest net unreachable),Enabled,03/09/26 14:00:00\r\n";

/// A program that started in the tray.
struct Session : Scenario {
  explicit Session(const Fault& fault = {})
      : Scenario({{"Interval", "30"}, {"Tray", "1"}, {"Tips", "-1"}}, fault) {
    network.At("10.0.0.1") = {.dataSize = 9, .roundTripTime = 1, .status = 0, .connectsAfter = 1};
    network.At("10.0.0.2") = {.connectsAfter = 1};
    network.At("10.0.0.3") = {.status = 11002, .connectError = 5};
    registry.values = {{"", REG_SZ, "\"browser\" %1."}};
  }
  void CheckAndSave(const std::string& name) {
    files.files[name] = kList;
    fileDialog.choices = {name, name};
    window.mnuFileLoad.Click.Raise();
    Check();
    window.mnuFileSave.Click.Raise();
  }
  /// Has the fault come?
  bool Failed() {
    return std::ranges::any_of(
        Parts(), [](Faulty* part) { return part->made[part->fault.call] >= part->fault.time; });
  }
  /// Uses whatever meets the outside.
  /// @return all that the user sees of it.
  Lines Work() {
    Lines seen{"interval " + std::to_string(window.State().CheckInterval)};
    CheckAndSave("list");
    window.tmrBalloon.Tick.Raise();
    for (int row = 1; row < Rows(); ++row) seen.insert(Cell(row, 1) + ": " + Cell(row, 3));
    for (const std::int32_t click : {WM_RBUTTONUP, NIN_BALLOONUSERCLICK}) {
      if (shell.procedure) shell.procedure(MemoryShell::kWindow, 32789, 0, click);
    }
    window.mnuHelpCont.Click.Raise();
    for (const auto& [message, record] : shell.told) {
      seen.insert("icon of " + std::to_string(record.cbSize) + " bytes");
    }
    for (const auto& [text, icon] : desktop.boxes) seen.insert(text);
    for (const std::string& program : registry.started) seen.insert("browser " + program);
    seen.insert(window.State().InTray ? "in the tray" : "shown");
    return seen;
  }
};

TEST(Faults, OfAnyCallShowInTheirPlaceAndHarmNothingElse) {
  const std::string notSaved = "Connection List Save Failed";
  const std::string notLoaded = "Connection List Load Failed";
  const std::string noBrowser = "Unable to open URL. Install browser first!";
  const struct {
    Texts calls;
    Lines shows;
  } cases[] = {
      {{"ReadSetting"}, {"interval 15"}},
      {{"OpenForReading"}, {notLoaded}},
      {{"EnsureRoom", "DeleteFile", "OpenTextFile", "WriteLine", "Close"}, {notSaved}},
      {{"WSAStartup"},
       {"Windows Sockets for 32 bit Windows environments is not successfully responding."}},
      {{"WSACleanup"}, {"Windows Sockets error -1 occurred in Cleanup."}},
      {{"IcmpCreateFile", "IcmpSendEcho"},
       {"A: Online (RDP Response)", "C: Offline (ip general failure)"}},
      {{"Connected", "SetServer", "Connect"}, {"B: Offline (ip req timed out)"}},
      {{"IcmpCloseHandle", "Disconnect", "RegCloseKey", "SetForegroundWindow", "PopupMenu"}, {}},
      {{"RegOpenKeyExA", "RegEnumValueA", "Start"}, {noBrowser}},
      {{"Shell_NotifyIconA", "SetWindowLongA"}, {"in the tray"}},
      {{"GetFileVersionInfoSizeA", "GetFileVersionInfoA", "VerQueryValueA"}, {"icon of 488 bytes"}},
  };
  Session whole;
  const Lines usual = whole.Work();
  Lines calls;
  for (const auto& [names, shows] : cases) {
    for (const std::string& call : names) {
      SCOPED_TRACE(call);
      calls.insert(call);
      Lines shown;
      for (int time = 1;; ++time) {
        Session session({call, time});
        std::ranges::set_difference(session.Work(), usual, std::inserter(shown, shown.end()));
        const bool failed = session.Failed();
        if (failed) session.CheckAndSave("new");
        session.window.mnuFileExit.Click.Raise();
        EXPECT_TRUE(session.desktop.ended);
        if (!session.Failed()) break;
        EXPECT_EQ(session.files.files["new"], failed ? kCheckedList : "") << time;
      }
      EXPECT_EQ(shown, shows);
    }
  }
  for (Faulty* part : whole.Parts()) {
    for (const auto& [call, times] : part->made)
      EXPECT_TRUE(calls.contains(std::string(call))) << call;
  }
}

}  // namespace kestrava::test
