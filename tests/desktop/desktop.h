#pragma once

#include <gtest/gtest.h>

#include "desktop/driver.h"
#include "platform/settings_store.h"
#include "platform/window_system.h"
#include "shared/connection_table.h"

namespace kestrava::test {

/// Fills a field, the first for no name, and presses Enter.
inline auto Enter(const std::string& text, const std::string& field = {}) {
  return [=](Part dialog) {
    Fill(Find(dialog, field), text);
    Press(Find(dialog, field), Key::Enter);
  };
}
/// Adds a row of that address.
inline void Add(const std::string& address) {
  InDialogs({Enter(address, "txtAddress")});
  Click(Find("cmdAdd"));
}

/// The whole program in its real windows, with real files, settings and network.
struct Desktop {
  /// @param tray "1" to start in the tray.
  explicit Desktop(const char* tray = "0") {
    real.settings.WriteSetting("Preferences", "Tray", tray);
    system->Take(main);
    real.windows.Load(main);
    if (!main.State().InTray) real.windows.Show(main);
    window = Find("frmMain");
  }
  ~Desktop() { real.windows.Unload(main); }
  /// Puts a row into the table, with an address that no machine can have.
  void AddRow(const std::string& name, const std::string& address = "1..2.3") {
    AppendConnectionRow(grid);
    for (const auto& [column, text] : {std::pair(kNameColumn, name), {kAddressColumn, address}}) {
      grid.SetCol(column);
      grid.SetText(text);
    }
  }
  /// Puts a new row in place of all others, as a list that is loaded does.
  static void ReplaceRows(frmMain& main) {
    main.grdServers.SetRows(1);
    main.grdServers.SetRows(2);
  }
  /// Lets the pass that is under way come to its end.
  void Finish() const {
    ASSERT_TRUE(Until([&] { return main.Pointer() == MousePointer::Default; }));
  }
  void Check() const {
    Click(Find("cmdCheck"));
    Finish();
  }
  /// Opens a dialog by its button or menu entry, and returns when it has gone.
  static void Open(const std::string& way) {
    if (way.starts_with("cmd")) return Click(Find(way));
    Pick(way);
  }
  std::string Cell(int row, int column) const { return grid.TextAt(row, column); }
  /// The texts of a column, with ";" after each.
  std::string Texts(int column) const {
    std::string texts;
    for (int row = 1; row < grid.Rows(); ++row) texts += Cell(row, column) + ";";
    return texts;
  }
  /// Double-clicks an address by mouse, and any other cell by key.
  void DoubleClick(int row, int column) const {
    Settle();
    if (column == kAddressColumn) return DoubleClickCell(row, column);
    ClickCell(row, column);
    Press(window, Key::Enter);
  }

  std::unique_ptr<System> system = MakeSystem();
  Platform real = system->Services();
  frmMain main{real};
  MSFlexGrid& grid = main.grdServers;
  Part window;
};

}  // namespace kestrava::test
