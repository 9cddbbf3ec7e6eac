#include "settings/frmPreferences.h"
#include "support/memory_desktop.h"

namespace kestrava::test {

using namespace std::chrono_literals;

TEST(Settings, AreReadAtTheStartEachInItsOwnWay) {
  const struct {
    StoredSettings stored;
    bool autoLoad;
    int interval;
    const char* next;  // the clock shows 14:00
  } cases[] = {
      {{}, false, 15, "14:15"},
      {{{"AutoLoadList", "-1"}, {"Interval", " 600 "}}, true, 600, "00:00"},
      {{{"AutoLoadList", "tRUE"}, {"Interval", "1440"}}, true, 1440, "14:00"},
      {{{"AutoLoadList", "yes"}, {"Interval", "abc"}}, false, 15, "14:15"},
      {{{"Interval", "-2147483648"}}, false, -2147483647 - 1, "11:52"},
      {{{"AutoLoadList", "00.0"}, {"Interval", "2147483648"}}, false, 15, "14:15"},
  };
  for (const auto& [stored, autoLoad, interval, next] : cases) {
    const Scenario program(stored);
    EXPECT_EQ(program.window.mnuFileAuto.Checked(), autoLoad);
    EXPECT_EQ(program.window.State().CheckInterval, interval);
    EXPECT_EQ(program.window.State().NextCheckTime, next);
    EXPECT_EQ(program.settings.writes, Texts());
    EXPECT_EQ(std::pair(program.window.Left(), program.window.Top()), std::pair(2040, 2850));
  }
}

TEST(Preferences, ShowWhatIsStoredAndStoreWhatIsShown) {
  Scenario program({{"Startup", "1"}, {"Tips", "yes"}, {"Tray", "1"}});
  program.InNext<frmPreferences>([](frmPreferences& dialog) {
    EXPECT_EQ(dialog.txtInterval.Text(), "15");
    EXPECT_FALSE(dialog.chkBalloon.Checked());
    EXPECT_TRUE(dialog.chkTray.Checked());
    EXPECT_TRUE(dialog.chkStartup.Checked());
    dialog.txtInterval.SetText("77");
    dialog.cmdCancel.Press();
  });
  program.window.mnuConnPref.Click.Raise();
  EXPECT_EQ(program.window.State().NextCheckTime, "14:15");

  program.clock.now += 7min;
  program.InNext<frmPreferences>([&](frmPreferences& dialog) {
    for (const char* refused : {"", "1.5", "2147483648"}) {
      dialog.txtInterval.SetText(refused);
      dialog.cmdSave.Press();
      EXPECT_TRUE(dialog.Visible()) << refused;
    }
    EXPECT_EQ(program.desktop.boxes.size(), 3U);
    EXPECT_EQ(program.settings.writes, Texts());
    dialog.txtInterval.SetText(" 030");
    dialog.chkBalloon.SetChecked(true);
    dialog.cmdSave.Press();
    EXPECT_FALSE(dialog.Visible());
  });
  program.window.mnuConnPref.Click.Raise();
  EXPECT_EQ(program.desktop.loaded.size(), 1U) << "the dialogs have gone";
  EXPECT_EQ(program.settings.writes, (Texts{"Interval= 030", "Tips=1", "Startup=1", "Tray=1"}));
  EXPECT_EQ(program.window.State().CheckInterval, 30);
  EXPECT_EQ(program.window.State().NextCheckTime, "14:37");
}

TEST(Schedule, ChecksWhereATickMeetsTheDueMinuteOfTheClock) {
  Scenario program;
  program.network.At("10.0.0.1") = kAnswering;
  program.Add("A", "10.0.0.1");
  int passes = 0;
  program.network.onEcho = [&] { ++passes; };
  const auto midnight = program.clock.now - 14h;
  const struct {
    std::chrono::seconds clock;  // what it shows at the tick, from the first day on
    int passes;
    const char* next;
  } ticks[] = {
      {14h + 14min + 59s, 0, "14:15"},
      {14h + 15min + 59s, 1, "14:30"},
      {14h + 15min + 59s, 1, "14:30"},  // the same minute is due once
      {14h + 31min, 1, "14:30"},        // late: the machine slept over the minute
      {15h + 30min, 1, "14:30"},        // nothing is made up for
      {24h + 14h + 30min, 2, "14:45"},  // the same reading a day later
      {24h + 15h + 44min, 2, "14:45"},  // set forward over the minute: summer time begins
      {24h + 14h + 45min, 3, "15:00"},  // set back onto it
      {24h + 15h + 30s, 4, "15:15"},
      {24h + 14h + 15min + 30s, 4, "15:15"},  // set back over it: winter time begins
      {24h + 15h + 30s, 4, "15:15"},          // it was done
      {24h + 15h + 15min, 5, "15:30"},
  };
  for (const auto& [clock, expected, next] : ticks) {
    program.clock.now = midnight + clock;
    program.window.tmrCheck.Tick.Raise();
    program.Finish();
    EXPECT_EQ(passes, expected) << next;
    EXPECT_EQ(program.window.State().NextCheckTime, next);
  }
}

TEST(Schedule, CountsFromTheEndOfThePass) {
  Scenario program(StoredSettings{{"Interval", "1"}});
  program.network.At("10.0.0.1") = kAnswering;
  program.Add("A", "10.0.0.1");
  const SharedState& state = program.window.State();
  const auto tick = [&] {
    program.clock.now += 1min;
    program.window.tmrCheck.Tick.Raise();
  };
  tick();
  EXPECT_TRUE(program.Checking());
  program.desktop.onTurn = tick;
  program.desktop.Turn();
  EXPECT_EQ(state.NextCheckTime, "14:01") << "the pass hasn't ended yet";
  program.Finish();
  EXPECT_EQ(state.NextCheckTime, "14:04");

  // The due minute falls into a pass that the user began: that pass is taken as the timed one.
  program.network.calls.clear();
  program.window.cmdCheck.Press();
  program.desktop.Turn();
  EXPECT_EQ(state.NextCheckTime, "14:05");
  program.Finish();
  EXPECT_EQ(std::ranges::count(program.network.calls, "cleanup"), 1);
  EXPECT_EQ(state.NextCheckTime, "14:06");

  // Summer time begins within the interval.
  program.clock.ahead = 60min;
  // With an empty table the due time moves on all the same.
  program.window.grdServers.SetRows(1);
  tick();
  EXPECT_EQ(state.NextCheckTime, "15:07");
}

}  // namespace kestrava::test
