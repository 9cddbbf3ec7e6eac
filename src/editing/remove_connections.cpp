#include "editing/remove_connections.h"

#include <algorithm>
#include <cstdint>

#include "editing/frmRemoveconn.h"
#include "monitor/connection_table.h"
#include "platform/flex_grid.h"
#include "platform/window_system.h"

namespace kestrava {

namespace {

constexpr std::int32_t kMostEntries = 32767;

}  // namespace

void RemoveConnections(MSFlexGrid& grid, WindowSystem& windows) {
  frmRemoveconn dialog;
  windows.Load(dialog);
  dialog.lstConnections.Clear();
  const std::int32_t lastRow = std::min(grid.Rows() - 1, kMostEntries);
  for (std::int32_t row = kHeadingRow + 1; row <= lastRow; ++row) {
    grid.SetRow(row);
    grid.SetCol(kNameColumn);
    dialog.lstConnections.AddItem(grid.Text());
  }
  windows.ShowModal(dialog);
  // From the highest number down, so that each number still names the row that it named when the
  // list was filled.
  std::for_each(dialog.colIndexes.rbegin(), dialog.colIndexes.rend(),
                [&](std::int32_t row) { grid.RemoveItem(row); });
  windows.Unload(dialog);
}

}  // namespace kestrava
