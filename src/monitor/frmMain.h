#pragma once

#include "help/RegAPI.h"
#include "lists/list_commands.h"
#include "monitor/check_pass.h"
#include "platform/flex_grid.h"
#include "platform/form.h"
#include "platform/platform.h"
#include "platform/task.h"
#include "probes/connection_probe.h"
#include "probes/modPing.h"
#include "shared/check_schedule.h"
#include "shared/shared_state.h"
#include "tray/modPopup.h"
#include "tray/notification_icon.h"

namespace kestrava {

/// The main window, which is the program: it owns the table, the controls and the shared state, and
/// its handlers are all that the program can be told to do.
class frmMain : public Form {
 public:
  explicit frmMain(const Platform& platform);

  MSFlexGrid grdServers{*this, "grdServers"};
  Button cmdAdd{*this, "cmdAdd"};
  Button cmdCheck{*this, "cmdCheck"};
  Button cmdRemove{*this, "cmdRemove"};
  /// The place of the Remote Desktop client, which is never shown.
  Control Rdp{*this, "Rdp", ControlKind::RemoteDesktop};

  Timer tmrCheck{*this, "tmrCheck"};
  Timer tmrBalloon{*this, "tmrBalloon"};

  MenuEntry mnufile{*this, "mnufile"};
  MenuEntry mnuFileNew{*this, "mnuFileNew"};
  MenuEntry mnuFileBrk1{*this, "mnuFileBrk1"};
  MenuEntry mnuFileLoad{*this, "mnuFileLoad"};
  MenuEntry mnuFileSave{*this, "mnuFileSave"};
  MenuEntry mnuFileBrk2{*this, "mnuFileBrk2"};
  MenuEntry mnuFileAuto{*this, "mnuFileAuto"};
  MenuEntry mnuFileRestore{*this, "mnuFileRestore"};
  MenuEntry mnuFileBrk3{*this, "mnuFileBrk3"};
  MenuEntry mnuFileTray{*this, "mnuFileTray"};
  MenuEntry mnuFileBrk4{*this, "mnuFileBrk4"};
  MenuEntry mnuFileExit{*this, "mnuFileExit"};
  MenuEntry mnuConn{*this, "mnuConn"};
  MenuEntry mnuConnCreate{*this, "mnuConnCreate"};
  MenuEntry mnuConnBrk1{*this, "mnuConnBrk1"};
  MenuEntry mnuConnPref{*this, "mnuConnPref"};
  MenuEntry mnuHelp{*this, "mnuHelp"};
  MenuEntry mnuHelpCont{*this, "mnuHelpCont"};
  MenuEntry mnuHelpBrk1{*this, "mnuHelpBrk1"};
  MenuEntry mnuHelpAbout{*this, "mnuHelpAbout"};

  /// What the parts of the program share, to be looked at from outside.
  const SharedState& State() const { return state_; }

  /// Brings the window back from the notification area.
  void RestoreWindow();

  /// Stores which list the next start may load; part of the unload, and all of it where the process
  /// ends without one.
  void StoreLastListFile();

 private:
  void Form_Load();
  void Form_Resize();
  void Form_Unload();
  void cmdAdd_Click();
  void cmdCheck_Click();
  void cmdRemove_Click();
  void grdServers_DblClick();
  void tmrCheck_Timer();
  void tmrBalloon_Timer();
  void mnuFileNew_Click();
  void mnuFileLoad_Click();
  void mnuFileSave_Click();
  void mnuFileAuto_Click();
  void mnuFileRestore_Click();
  void mnuFileTray_Click();
  void mnuFileExit_Click();
  void mnuConnCreate_Click();
  void mnuConnPref_Click();
  void mnuHelpCont_Click();
  void mnuHelpAbout_Click();

  /// A check pass and what it leads to. While it is under way it counts as any pass that falls due.
  Task<> Check();
  /// A table without connections has nothing to check or to remove.
  void ApplyButtonRule();
  /// Out of sight, a pass tells its failures in a balloon.
  void ReportFailures();
  /// The File menu shrinks to what makes sense at the icon, or is whole again.
  void ShowWindowEntries(bool visible);

  const Platform platform_;
  SharedState state_;
  modPing ping_;
  ConnectionProbe probe_;
  CheckPass checkPass_;
  CheckSchedule schedule_;
  ListCommands lists_;
  modPopup popup_;
  NotificationIcon icon_;
  RegAPI browser_;
  bool checkIsTimed_ = false;  ///< the schedule has begun the pass that is under way
  Task<> check_;               ///< the latest pass; it goes before all that it works with
};

}  // namespace kestrava
