#pragma once

#include <gtest/gtest.h>

#include "editing/frmNewConn.h"
#include "editing/frmRemoveconn.h"
#include "monitor/frmMain.h"
#include "support/memory_network.h"
#include "support/memory_system.h"

namespace kestrava::test {

/// The real main window on the in-memory desktop.
struct Scenario {
  MemoryDesktop desktop;
  MemoryNetwork network{desktop};
  TestClock clock;
  MemorySettings settings;
  MemoryShell shell;
  MemoryRegistry registry;
  MemoryFiles files;
  ScriptedDialog fileDialog;
  frmMain window{Platform{desktop, desktop, desktop, desktop, fileDialog, clock, network, network,
                          network, settings, files, shell, shell, shell, registry, registry,
                          "/program"}};

  /// @param stored the settings that an earlier run left behind, by key.
  explicit Scenario(const StoredSettings& stored = {}, const Fault& fault = {}) {
    for (Faulty* part : Parts()) part->fault = fault;
    shell.wait = [this] { desktop.Wait(); };
    fileDialog.wait = [this] {
      desktop.Wait();
      if (desktop.ended) fileDialog.choices.clear();
    };
    for (const auto& [key, value] : stored) settings.values["Preferences/" + key] = value;
    desktop.Load(window);
    if (!window.State().InTray) desktop.Show(window);
  }

  /// All that can fail.
  std::array<Faulty*, 5> Parts() { return {&network, &settings, &shell, &registry, &files}; }

  std::string Cell(int row, int col) const { return window.grdServers.TextAt(row, col); }
  int Rows() const { return window.grdServers.Rows(); }
  Color Lamp(int row) const { return window.grdServers.BackColorAt(row, 0); }

  bool Checking() const { return window.Pointer() == MousePointer::Busy && !desktop.ended; }
  /// Lets the pass that is under way come to its end.
  void Finish() {
    while (Checking()) desktop.Turn();
  }
  void Check() {
    window.cmdCheck.Press();
    Finish();
  }

  /// What the user does in the dialog that opens next.
  template <typename Dialog>
  void InNext(std::function<void(Dialog&)> act) {
    desktop.dialogs.push_back([=](Form& form) { act(dynamic_cast<Dialog&>(form)); });
  }

  /// Adds a row through the add dialog, as a user does.
  void Add(const std::string& name, const std::string& address) {
    InNext<frmNewConn>([=](frmNewConn& dialog) {
      dialog.txtName.SetText(name);
      dialog.txtAddress.SetText(address);
      dialog.cmdSave.Press();
    });
    window.cmdAdd.Press();
  }

  /// Marks rows in the removal dialog and presses Delete.
  void Remove(const std::function<bool(int row)>& isMarked) {
    InNext<frmRemoveconn>([&](frmRemoveconn& dialog) {
      for (int entry = 0; entry < dialog.lstConnections.ListCount(); ++entry) {
        dialog.lstConnections.SetSelected(entry, isMarked(entry + 1));
      }
      dialog.cmdDelete.Press();
    });
    window.cmdRemove.Press();
  }
};

}  // namespace kestrava::test
