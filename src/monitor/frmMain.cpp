#include "monitor/frmMain.h"

#include "editing/add_connection.h"
#include "general/modGeneral.h"
#include "monitor/connection_table.h"
#include "monitor/main_window_spec.h"
#include "platform/window_system.h"

namespace kestrava {

frmMain::frmMain(const Platform& platform)
    : Form(kMainWindowSpec),
      platform_(platform),
      ping_(platform.icmp, platform.sockets, platform.messageBoxes),
      probe_(ping_, platform.rdp, platform.eventLoop),
      checkPass_(grdServers, probe_, platform.eventLoop, platform.clock, *this, state_) {
  Load.Connect([this] { Form_Load(); });
  cmdAdd.Click.Connect([this] { cmdAdd_Click(); });
  cmdCheck.Click.Connect([this] { cmdCheck_Click(); });
  mnuConnCreate.Click.Connect([this] { mnuConnCreate_Click(); });
  mnuFileExit.Click.Connect([this] { mnuFileExit_Click(); });

  // Entries that have no command yet.
  for (MenuEntry* entry : {&mnuFileNew, &mnuFileLoad, &mnuFileSave, &mnuFileAuto, &mnuFileTray,
                           &mnuConnPref, &mnuHelpCont, &mnuHelpAbout}) {
    entry->SetEnabled(false);
  }
}

void frmMain::Form_Load() {
  CenterForm(*this, platform_.windows);
  ConnectionGridSetup(grdServers);
  ApplyButtonRule();
}

void frmMain::cmdAdd_Click() {
  AddConnection(grdServers, platform_.windows, platform_.messageBoxes);
  ApplyButtonRule();
}

void frmMain::cmdCheck_Click() {
  checkPass_.Run();
}

void frmMain::mnuConnCreate_Click() {
  cmdAdd.Press();
}

void frmMain::mnuFileExit_Click() {
  platform_.windows.Unload(*this);
}

void frmMain::ApplyButtonRule() {
  const bool hasConnections = grdServers.Rows() > 1;
  cmdCheck.SetEnabled(hasConnections);
  cmdRemove.SetEnabled(hasConnections);
}

}  // namespace kestrava
