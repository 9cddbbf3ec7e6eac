#include <gtest/gtest.h>

#include "settings/frmPreferences.h"
#include "support/memory_desktop.h"

namespace kestrava::test {
namespace {

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
      {{{"AutoLoadList", "00.0"}, {"Interval", "1440"}}, false, 1440, "14:00"},
      {{{"AutoLoadList", "True"}, {"Interval", "abc"}}, false, 15, "14:15"},
      {{{"Interval", "-2147483648"}}, false, -2147483647 - 1, "11:52"},
      {{{"Interval", "2147483648"}}, false, 15, "14:15"},
  };
  for (const auto& [stored, autoLoad, interval, next] : cases) {
    const Scenario program(stored);
    EXPECT_EQ(program.window.mnuFileAuto.Checked(), autoLoad);
    EXPECT_EQ(program.window.State().CheckInterval, interval);
    EXPECT_EQ(program.window.State().NextCheckTime, next);
    EXPECT_EQ(program.settings.writes, Texts());
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

TEST(Schedule, ChecksAtTheDueMinuteAndCountsFromTheEndOfThePass) {
  Scenario program(StoredSettings{{"Interval", "1"}});
  program.network.At("10.0.0.1") = kAnswering;
  program.Add("A", "10.0.0.1");
  int passes = 0;
  program.network.onEcho = [&] { ++passes; };
  const auto tick = [&](std::chrono::seconds later) {
    program.clock.now += later;
    program.window.tmrCheck.Tick.Raise();
  };
  tick(59s);
  EXPECT_EQ(passes, 0);
  tick(40s);
  EXPECT_EQ(passes, 1);
  EXPECT_EQ(program.window.State().NextCheckTime, "14:02");
  tick(10s);
  EXPECT_EQ(passes, 1) << "the same minute is due once";
  tick(2min);
  EXPECT_EQ(passes, 1) << "a minute that went by is not made up for";
  tick(24h - 1min);
  EXPECT_EQ(passes, 2) << "the same clock reading comes again a day later";

  // A pass that takes two minutes: the interval counts from its end.
  program.network.onEcho = [&] { program.clock.now += ++passes == 3 ? 2min : 0min; };
  tick(1min);
  EXPECT_EQ(passes, 3);
  EXPECT_EQ(program.window.State().NextCheckTime, "14:06");

  // The due minute falls into a pass that the user began: that pass is taken as the timed one.
  program.network.onEcho = [&] {
    ++passes;
    tick(1min);
  };
  program.window.cmdCheck.Press();
  EXPECT_EQ(passes, 4);
  EXPECT_EQ(program.window.State().NextCheckTime, "14:07");

  // With an empty table the due time moves on all the same.
  program.window.grdServers.SetRows(1);
  tick(1min);
  EXPECT_EQ(program.window.State().NextCheckTime, "14:08");
}

}  // namespace
}  // namespace kestrava::test
