#include "settings/edit_preferences.h"

#include "platform/window_system.h"
#include "settings/frmPreferences.h"
#include "settings/preferences.h"
#include "shared/check_schedule.h"

namespace kestrava {

void EditPreferences(WindowSystem& windows, MessageBoxes& messageBoxes, SettingsStore& store,
                     CheckSchedule& schedule) {
  frmPreferences dialog(messageBoxes);
  const LoadedForm loaded(windows, dialog);
  dialog.txtInterval.SetText(ReadText(store, kInterval));
  dialog.chkBalloon.SetChecked(ReadsOne(store, kTips));
  dialog.chkStartup.SetChecked(ReadsOne(store, kStartup));
  dialog.chkTray.SetChecked(ReadsOne(store, kTray));
  windows.ShowModal(dialog);
  if (dialog.Saving) {
    WriteText(store, kInterval, dialog.txtInterval.Text());
    WriteFlag(store, kTips, dialog.chkBalloon.Checked());
    WriteFlag(store, kStartup, dialog.chkStartup.Checked());
    WriteFlag(store, kTray, dialog.chkTray.Checked());
    schedule.SetInterval(ReadMinutes(store, kInterval));
  }
}

}  // namespace kestrava
