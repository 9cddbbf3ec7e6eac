#include "editing/add_connection.h"

#include <string>

#include "editing/frmNewConn.h"
#include "monitor/connection_table.h"
#include "platform/flex_grid.h"
#include "platform/window_system.h"

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
    grid.SetCol(kNameColumn);
    grid.SetText(dialog.txtName.Text());
    grid.SetCol(kAddressColumn);
    grid.SetText(dialog.txtAddress.Text());
    grid.SetCol(kStatusColumn);
    grid.SetText(kUnchecked);
    grid.SetCol(kCheckingColumn);
    grid.SetText(kCheckingEnabled);
    grid.SetCol(kLastCheckedColumn);
    grid.SetText(kUnchecked);
  }
}

}  // namespace kestrava
