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

}  // namespace kestrava::test
