#include <gtest/gtest.h>

#include "settings/frmPreferences.h"
#include "support/memory_desktop.h"

namespace kestrava::test {
namespace {

using Texts = std::vector<std::string>;

TEST(Settings, AreReadAtTheStartEachInItsOwnWay) {
  const struct {
    StoredSettings stored;
    bool autoLoad;
    int interval;
    const char* next;  // the clock shows 14:00
  } cases[] = {
      {{}, false, 15, "14:15"},
      {{{"AutoLoadList", "1"}, {"Interval", "600"}}, true, 600, "00:00"},
      {{{"AutoLoadList", "-1"}, {"Interval", " 65 "}}, true, 65, "15:05"},
      {{{"AutoLoadList", "00.0"}, {"Interval", "1440"}}, false, 1440, "14:00"},
      {{{"AutoLoadList", "True"}, {"Interval", "abc"}}, false, 15, "14:15"},
      {{{"AutoLoadList", ""}, {"Interval", ""}}, false, 15, "14:15"},
      {{{"Interval", "0"}}, false, 0, "14:00"},
      {{{"Interval", "-1"}}, false, -1, "13:59"},
      {{{"Interval", "2147483647"}}, false, 2147483647, "16:07"},
      {{{"Interval", "-2147483648"}}, false, -2147483647 - 1, "11:52"},
      {{{"Interval", "2147483648"}}, false, 15, "14:15"},
  };
  for (const auto& [stored, autoLoad, interval, next] : cases) {
    const Scenario program(stored);
    SCOPED_TRACE(interval);
    EXPECT_EQ(program.window.mnuFileAuto.Checked(), autoLoad);
    EXPECT_EQ(program.window.State().CheckInterval, interval);
    EXPECT_EQ(program.window.State().NextCheckTime, next);
    EXPECT_EQ(program.settings.writes, Texts());
  }
}

TEST(Settings, KeepTheLastListFileAndTheMark) {
  Scenario first;
  first.window.mnuFileAuto.Click.Raise();
  first.window.mnuFileAuto.Click.Raise();
  first.window.mnuFileExit.Click.Raise();
  EXPECT_EQ(first.settings.writes, (Texts{"AutoLoadList=1", "AutoLoadList=0"}));

  Scenario second(StoredSettings{{"LastListFile", "/tmp/a, b.kvl"}});
  second.window.mnuFileExit.Click.Raise();
  EXPECT_EQ(second.settings.writes, Texts{"LastListFile=/tmp/a, b.kvl"});
}

TEST(Preferences, ShowWhatIsStoredAndStoreWhatIsShown) {
  Scenario program({{"Startup", "1"}, {"Tips", "yes"}, {"Tray", "1"}});
  const auto open = [&](auto act) {
    program.settings.writes.clear();
    program.desktop.dialogs.push_back(
        [=](Form& form) { act(dynamic_cast<frmPreferences&>(form)); });
    program.window.mnuConnPref.Click.Raise();
    EXPECT_EQ(program.desktop.loaded.size(), 1U) << "the dialog has gone";
  };
  open([](frmPreferences& dialog) {
    EXPECT_EQ(dialog.txtInterval.Text(), "15");
    EXPECT_FALSE(dialog.chkBalloon.Checked());
    EXPECT_TRUE(dialog.chkTray.Checked());
    EXPECT_TRUE(dialog.chkStartup.Checked());
    EXPECT_FALSE(dialog.chkStartup.Visible());
    dialog.txtInterval.SetText("77");
    dialog.cmdCancel.Press();
  });
  EXPECT_EQ(program.settings.writes, Texts());
  EXPECT_EQ(program.window.State().NextCheckTime, "14:15");

  program.clock.now += std::chrono::minutes(7);
  open([&](frmPreferences& dialog) {
    for (const char* refused : {"", "abc", "1.5", "12x", "2147483648"}) {
      dialog.txtInterval.SetText(refused);
      dialog.cmdSave.Press();
      EXPECT_TRUE(dialog.Visible()) << refused;
    }
    EXPECT_EQ(program.desktop.boxes.size(), 5U);
    EXPECT_EQ(program.settings.writes, Texts());
    dialog.txtInterval.SetText(" 030");
    dialog.chkBalloon.SetChecked(true);
    dialog.cmdSave.Press();
    EXPECT_FALSE(dialog.Visible());
  });
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
  using std::chrono::minutes;
  using std::chrono::seconds;
  tick(seconds(59));
  EXPECT_EQ(passes, 0);
  tick(seconds(40));
  EXPECT_EQ(passes, 1);
  EXPECT_EQ(program.window.State().NextCheckTime, "14:02");
  tick(seconds(10));
  EXPECT_EQ(passes, 1) << "the same minute is due once";
  tick(minutes(2));
  EXPECT_EQ(passes, 1) << "a minute that went by is not made up for";
  tick(minutes(24 * 60 - 1));
  EXPECT_EQ(passes, 2) << "the same clock reading comes again a day later";

  // A pass that takes two minutes: the interval counts from its end.
  program.network.onEcho = [&] { program.clock.now += minutes(++passes == 3 ? 2 : 0); };
  tick(minutes(1));
  EXPECT_EQ(passes, 3);
  EXPECT_EQ(program.window.State().NextCheckTime, "14:06");

  // The due minute falls into a pass that the user began: that pass is taken as the timed one.
  program.network.onEcho = [&] {
    ++passes;
    tick(minutes(1));
  };
  program.window.cmdCheck.Press();
  EXPECT_EQ(passes, 4);
  EXPECT_EQ(program.window.State().NextCheckTime, "14:07");

  // With an empty table the due time moves on all the same.
  program.window.grdServers.SetRows(1);
  tick(minutes(1));
  EXPECT_EQ(program.window.State().NextCheckTime, "14:08");
}

}  // namespace
}  // namespace kestrava::test
