#include "monitor/frmMain.h"

#include "editing/add_connection.h"
#include "general/modGeneral.h"
#include "monitor/connection_table.h"
#include "monitor/main_window_spec.h"
#include "platform/window_system.h"
#include "settings/edit_preferences.h"
#include "settings/preferences.h"

namespace kestrava {

frmMain::frmMain(const Platform& platform)
    : Form(kMainWindowSpec),
      platform_(platform),
      ping_(platform.icmp, platform.sockets, platform.messageBoxes),
      probe_(ping_, platform.rdp, platform.eventLoop),
      checkPass_(grdServers, probe_, platform.eventLoop, platform.clock, *this, state_),
      schedule_(platform.clock, state_) {
  Load.Connect([this] { Form_Load(); });
  Unload.Connect([this] { Form_Unload(); });
  cmdAdd.Click.Connect([this] { cmdAdd_Click(); });
  cmdCheck.Click.Connect([this] { cmdCheck_Click(); });
  tmrCheck.Tick.Connect([this] { tmrCheck_Timer(); });
  mnuFileAuto.Click.Connect([this] { mnuFileAuto_Click(); });
  mnuFileExit.Click.Connect([this] { mnuFileExit_Click(); });
  mnuConnCreate.Click.Connect([this] { mnuConnCreate_Click(); });
  mnuConnPref.Click.Connect([this] { mnuConnPref_Click(); });

  // Entries that have no command yet.
  for (MenuEntry* entry :
       {&mnuFileNew, &mnuFileLoad, &mnuFileSave, &mnuFileTray, &mnuHelpCont, &mnuHelpAbout}) {
    entry->SetEnabled(false);
  }
}

void frmMain::Form_Load() {
  CenterForm(*this, platform_.windows);
  ConnectionGridSetup(grdServers);
  mnuFileAuto.SetChecked(ReadBoolean(platform_.settings, kAutoLoadList));
  state_.LastListFile = ReadText(platform_.settings, kLastListFile);
  schedule_.SetInterval(ReadMinutes(platform_.settings, kInterval));
  ApplyButtonRule();
}

void frmMain::Form_Unload() {
  if (!state_.LastListFile.empty()) {
    WriteText(platform_.settings, kLastListFile, state_.LastListFile);
  }
}

void frmMain::cmdAdd_Click() {
  AddConnection(grdServers, platform_.windows, platform_.messageBoxes);
  ApplyButtonRule();
}

void frmMain::cmdCheck_Click() { checkPass_.Run(); }

void frmMain::tmrCheck_Timer() {
  if (!schedule_.IsDue()) return;
  cmdCheck.Press();
  schedule_.SetNextCheckTime();
}

void frmMain::mnuFileAuto_Click() {
  mnuFileAuto.SetChecked(!mnuFileAuto.Checked());
  WriteFlag(platform_.settings, kAutoLoadList, mnuFileAuto.Checked());
}

void frmMain::mnuFileExit_Click() { platform_.windows.Unload(*this); }

void frmMain::mnuConnCreate_Click() { cmdAdd.Press(); }

void frmMain::mnuConnPref_Click() {
  EditPreferences(platform_.windows, platform_.messageBoxes, platform_.settings, schedule_);
}

void frmMain::ApplyButtonRule() {
  const bool hasConnections = grdServers.Rows() > 1;
  cmdCheck.SetEnabled(hasConnections);
  cmdRemove.SetEnabled(hasConnections);
}

}  // namespace kestrava
