#include "monitor/frmMain.h"

#include <exception>
#include <utility>

#include "editing/add_connection.h"
#include "editing/grid_edit.h"
#include "editing/remove_connections.h"
#include "general/modGeneral.h"
#include "help/frmAbout.h"
#include "help/web_pages.h"
#include "monitor/main_window_spec.h"
#include "platform/error_report.h"
#include "platform/notification_area.h"
#include "platform/window_system.h"
#include "settings/edit_preferences.h"
#include "settings/preferences.h"
#include "shared/connection_table.h"
#include "tray/failure_report.h"

namespace kestrava {

frmMain::frmMain(const Platform& platform)
    : Form(kMainWindowSpec),
      platform_(platform),
      ping_(platform.icmp, platform.sockets, platform.messageBoxes),
      probe_(ping_, platform.rdp, platform.eventLoop),
      checkPass_(grdServers, probe_, platform.eventLoop, platform.clock, *this,
                 state_.FailedConnections),
      schedule_(platform.clock, state_.CheckInterval, state_.NextCheckTime),
      lists_(grdServers, platform.files, platform.commonDialog, platform.messageBoxes,
             state_.LastListFile, platform.programFolder, [this] { ApplyButtonRule(); }),
      popup_(*this, mnufile, mnuFileRestore, platform.messages, state_.SavedWindowProc,
             state_.BalloonAction, [this] { RestoreWindow(); }),
      icon_(platform.notificationArea, platform.versions, popup_),
      browser_(platform.registry, platform.processes, platform.messageBoxes) {
  Load.Connect([this] { Form_Load(); });
  Resize.Connect([this] { Form_Resize(); });
  Unload.Connect([this] { Form_Unload(); });
  cmdAdd.Click.Connect([this] { cmdAdd_Click(); });
  cmdCheck.Click.Connect([this] { cmdCheck_Click(); });
  cmdRemove.Click.Connect([this] { cmdRemove_Click(); });
  grdServers.DblClick.Connect([this] { grdServers_DblClick(); });
  tmrCheck.Tick.Connect([this] { tmrCheck_Timer(); });
  tmrBalloon.Tick.Connect([this] { tmrBalloon_Timer(); });
  mnuFileNew.Click.Connect([this] { mnuFileNew_Click(); });
  mnuFileLoad.Click.Connect([this] { mnuFileLoad_Click(); });
  mnuFileSave.Click.Connect([this] { mnuFileSave_Click(); });
  mnuFileAuto.Click.Connect([this] { mnuFileAuto_Click(); });
  mnuFileRestore.Click.Connect([this] { mnuFileRestore_Click(); });
  mnuFileTray.Click.Connect([this] { mnuFileTray_Click(); });
  mnuFileExit.Click.Connect([this] { mnuFileExit_Click(); });
  mnuConnCreate.Click.Connect([this] { mnuConnCreate_Click(); });
  mnuConnPref.Click.Connect([this] { mnuConnPref_Click(); });
  mnuHelpCont.Click.Connect([this] { mnuHelpCont_Click(); });
  mnuHelpAbout.Click.Connect([this] { mnuHelpAbout_Click(); });
}

void frmMain::Form_Load() {
  CenterForm(*this, platform_.windows);
  ConnectionGridSetup(grdServers);
  GiveDatesRoom(grdServers, platform_.clock);
  state_.InTray = false;
  icon_.TrayIconAdd();
  mnuFileAuto.SetChecked(ReadBoolean(platform_.settings, kAutoLoadList));
  state_.LastListFile = ReadText(platform_.settings, kLastListFile);
  if (mnuFileAuto.Checked() && !state_.LastListFile.empty()) lists_.LoadLastList();
  schedule_.SetInterval(ReadMinutes(platform_.settings, kInterval));
  state_.ShowBalloons = ReadBoolean(platform_.settings, kTips);
  if (ReadsOne(platform_.settings, kTray)) mnuFileTray_Click();
  ApplyButtonRule();
}

void frmMain::Form_Resize() {
  if (WindowState() == WindowState::Minimized) mnuFileTray_Click();
}

void frmMain::Form_Unload() {
  check_ = {};
  StoreLastListFile();
  icon_.TrayIconRemove();
}

void frmMain::cmdAdd_Click() {
  AddConnection(grdServers, platform_.windows, platform_.messageBoxes);
  ApplyButtonRule();
}

void frmMain::cmdCheck_Click() {
  if (check_.UnderWay()) return;
  check_ = Check();
  check_.Start();
}

void frmMain::cmdRemove_Click() {
  RemoveConnections(grdServers, platform_.windows);
  ApplyButtonRule();
}

void frmMain::grdServers_DblClick() {
  EditUserCell(grdServers, platform_.promptBoxes, platform_.messageBoxes);
}

void frmMain::tmrCheck_Timer() {
  if (!schedule_.IsDue()) return;
  if (check_.UnderWay()) {
    // It is taken as the one that is due.
    schedule_.SetNextCheckTime();
  } else {
    checkIsTimed_ = true;
    cmdCheck.Press();
  }
}

void frmMain::tmrBalloon_Timer() {
  icon_.TrayBalloonHide(popup_.Handle());
  tmrBalloon.SetEnabled(false);
  tmrBalloon.SetInterval(tmrBalloon.Spec().interval);
}

void frmMain::mnuFileNew_Click() { lists_.NewList(); }

void frmMain::mnuFileLoad_Click() { lists_.LoadList(); }

void frmMain::mnuFileSave_Click() { lists_.SaveList(); }

void frmMain::mnuFileAuto_Click() {
  mnuFileAuto.SetChecked(!mnuFileAuto.Checked());
  WriteFlag(platform_.settings, kAutoLoadList, mnuFileAuto.Checked());
}

void frmMain::mnuFileRestore_Click() {
  ShowWindowEntries(true);
  mnuFileRestore.SetVisible(false);
  SetWindowState(WindowState::Normal);
  SetVisible(true);
  state_.InTray = false;
}

void frmMain::mnuFileTray_Click() {
  ShowWindowEntries(false);
  mnuFileRestore.SetVisible(true);
  SetVisible(false);
  state_.InTray = true;
}

void frmMain::mnuFileExit_Click() { platform_.windows.Unload(*this); }

void frmMain::mnuConnCreate_Click() { cmdAdd.Press(); }

void frmMain::mnuConnPref_Click() {
  EditPreferences(platform_.windows, platform_.messageBoxes, platform_.settings, schedule_);
}

void frmMain::mnuHelpCont_Click() { browser_.OpenUrlInBrowser(ManualUrl()); }

void frmMain::mnuHelpAbout_Click() {
  frmAbout about(platform_.windows, browser_);
  const LoadedForm loaded(platform_.windows, about);
  platform_.windows.ShowModal(about);
}

void frmMain::RestoreWindow() { mnuFileRestore_Click(); }

void frmMain::StoreLastListFile() {
  if (!state_.LastListFile.empty()) {
    WriteText(platform_.settings, kLastListFile, state_.LastListFile);
  }
}

Task<> frmMain::Check() {
  try {
    co_await checkPass_.Run();
    ReportFailures();
  } catch (...) {
    // The next pass comes all the same.
    ReportError(std::current_exception());
  }
  if (std::exchange(checkIsTimed_, false)) schedule_.SetNextCheckTime();
}

void frmMain::ApplyButtonRule() {
  const bool hasConnections = grdServers.Rows() > 1;
  cmdCheck.SetEnabled(hasConnections);
  cmdRemove.SetEnabled(hasConnections);
}

void frmMain::ReportFailures() {
  if (!state_.InTray || !state_.ShowBalloons) return;
  state_.BalloonAction = kShowMain;
  if (state_.FailedConnections.empty()) return;
  icon_.TrayBalloonShow(NIIF_USER, Spec().caption, FailureReport(state_.FailedConnections));
  tmrBalloon.SetEnabled(true);
}

void frmMain::ShowWindowEntries(bool visible) {
  for (MenuEntry* entry : {&mnuFileAuto, &mnuFileBrk1, &mnuFileBrk2, &mnuFileBrk3, &mnuFileLoad,
                           &mnuFileNew, &mnuFileSave, &mnuFileTray}) {
    entry->SetVisible(visible);
  }
}

}  // namespace kestrava
