#include "settings/frmPreferences.h"
#include "support/memory_desktop.h"

namespace kestrava::test {

using namespace std::chrono_literals;

/// A program with two machines that is checked every minute. A turn takes ten seconds, so that each
/// wait of the user's lasts over several passes.
struct Watching : Scenario {
  enum class Moment { Waiting, UsersPass, TimedPass };

  Watching() : Scenario({{"Interval", "1"}, {"LastListFile", "list"}}) {
    for (const char* name : {"A", "B"}) Add(name, "10.0.0.1");
    network.At("10.0.0.1") = kAnswering;
    files.files["list"] = "ZR_Kestrava_ConnectionList\r\nL,10.0.0.1,,,\r\n";
    fileDialog.choices = {"list"};
    desktop.onPrompt = [] { return "X"; };
    desktop.onTurn = [this] {
      clock.now += 10s;
      if (desktop.turns % 6 == 0) window.tmrCheck.Tick.Raise();
      if (desktop.turns == exitTurn) window.mnuFileExit.Click.Raise();
    };
    desktop.openFor = kOpenFor;
  }
  void Reach(Moment moment) {
    if (moment == Moment::UsersPass) window.cmdCheck.Press();
    if (moment == Moment::TimedPass) {
      while (!Checking()) desktop.Turn();
    }
  }
  std::string Names() const {
    std::string names;
    for (int row = 1; row < Rows(); ++row) names += Cell(row, 1) + ";";
    return names;
  }
  std::ptrdiff_t Echoes() const { return std::ranges::count(network.calls, "cleanup"); }

  static constexpr int kOpenFor = 40;
  long exitTurn = -1;
};

/// What the user opens, how long that is open in all, and the names in the table at its end.
const struct {
  const char* what;
  std::function<void(Watching&)> open;
  int waits;
  const char* names;
  std::function<bool(const Watching&)> done = [](const Watching&) { return true; };
} kWaits[] = {
    {"about box", [](Watching& user) { user.window.mnuHelpAbout.Click.Raise(); }, 1, "A;B;"},
    {"add", [](Watching& user) { user.Add("C", "1.1.1.1"); }, 1, "A;B;C;"},
    {"remove", [](Watching& user) { user.Remove([](int row) { return row == 1; }); }, 1, "B;"},
    {"preferences",
     [](Watching& user) {
       user.InNext<frmPreferences>([](frmPreferences& dialog) {
         dialog.txtInterval.SetText("30");
         dialog.cmdSave.Press();
       });
       user.window.mnuConnPref.Click.Raise();
     },
     1, "A;B;", [](const Watching& user) { return user.window.State().CheckInterval == 30; }},
    {"edit prompt",
     [](Watching& user) {
       user.window.grdServers.ChooseCell(1, 1);
       user.window.grdServers.DblClick.Raise();
     },
     1, "X;B;"},
    {"file dialog", [](Watching& user) { user.window.mnuFileLoad.Click.Raise(); }, 1, "L;"},
    {"file dialog, question and message",
     [](Watching& user) { user.window.mnuFileSave.Click.Raise(); }, 3, "A;B;",
     [](const Watching& user) {
       return user.files.files.at("list").find("B,") != std::string::npos;
     }},
    {"icon's menu",
     [](Watching& user) {
       user.shell.onPopup = [&user] { user.window.mnuFileTray.Click.Raise(); };
       user.shell.procedure(MemoryShell::kWindow, 32789, 0, WM_RBUTTONUP);
     },
     1, "A;B;", [](const Watching& user) { return user.window.State().InTray; }}};

TEST(Waits, HoldUpNoPassAndEachAnswerTakesEffectAtOnce) {
  using enum Watching::Moment;
  for (const auto moment : {Waiting, UsersPass, TimedPass}) {
    for (const auto& [what, open, waits, names, done] : kWaits) {
      SCOPED_TRACE(what);
      Watching user;
      Watching nobody;
      user.Reach(moment);
      nobody.Reach(moment);
      const long start = user.desktop.turns;
      open(user);
      EXPECT_EQ(user.desktop.turns, start + waits * Watching::kOpenFor) << "at once";
      EXPECT_EQ(user.Names(), names);
      EXPECT_TRUE(done(user));
      EXPECT_EQ(user.desktop.loaded.size(), 1U);
      while (nobody.desktop.turns < user.desktop.turns) nobody.desktop.Turn();
      EXPECT_EQ(user.Echoes(), nobody.Echoes()) << "a pass was held up";
      EXPECT_GE(nobody.Echoes(), 6);
    }
  }
}

TEST(Waits, EndWithTheProgramAndNothingIsWrittenAfterwards) {
  for (const auto& [what, open, waits, names, done] : kWaits) {
    for (int turn = 1; turn < Watching::kOpenFor; ++turn) {
      SCOPED_TRACE(what);
      Watching user;
      user.exitTurn = user.desktop.turns + turn;
      const auto list = user.files.files;
      open(user);
      ASSERT_TRUE(user.desktop.ended);
      EXPECT_LE(user.desktop.turns, user.exitTurn) << "nothing waits any more";
      EXPECT_EQ(user.Names(), "A;B;");
      EXPECT_EQ(user.settings.writes, Texts{"LastListFile=list"});
      EXPECT_EQ(user.files.files, list);
      const auto echoes = user.Echoes();
      const std::string text = user.Cell(1, 5) + user.Cell(2, 5);
      for (int later = 0; later < 20; ++later) user.desktop.Turn();
      EXPECT_EQ(user.Echoes(), echoes);
      EXPECT_EQ(user.Cell(1, 5) + user.Cell(2, 5), text);
    }
  }
}

TEST(Waits, APromptsAnswerIsDroppedWhereItsCellHasChangedMeanwhile) {
  Watching user;
  user.window.grdServers.ChooseCell(1, 1);
  user.desktop.onPrompt = [&user] {
    user.desktop.onPrompt = [] { return "newer"; };
    user.window.grdServers.DblClick.Raise();
    return "older";
  };
  user.window.grdServers.DblClick.Raise();
  EXPECT_EQ(user.Names(), "newer;B;");
}

}  // namespace kestrava::test
