#include "editing/add_connection.h"

#include <string>

#include "editing/frmNewConn.h"
#include "platform/flex_grid.h"
#include "platform/window_system.h"
#include "shared/connection_table.h"

namespace kestrava {

void AddConnection(MSFlexGrid& grid, WindowSystem& windows, MessageBoxes& messageBoxes) {
  frmNewConn dialog(windows, messageBoxes);
  const LoadedForm loaded(windows, dialog);
  dialog.txtName.SetText("New Connection " + std::to_string(grid.Rows()));
  windows.ShowModal(dialog);
  if (dialog.SavingConn) {
    AppendConnectionRow(grid);
    grid.SetCol(kLampColumn);
    grid.SetCellBackColor(kWhite);
    WriteCell(grid, kNameColumn, dialog.txtName.Text());
    WriteCell(grid, kAddressColumn, dialog.txtAddress.Text());
    WriteCell(grid, kStatusColumn, kUnchecked);
    WriteCell(grid, kCheckingColumn, kCheckingEnabled);
    WriteCell(grid, kLastCheckedColumn, kUnchecked);
  }
}

}  // namespace kestrava
