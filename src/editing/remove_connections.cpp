#include "editing/remove_connections.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "editing/frmRemoveconn.h"
#include "platform/flex_grid.h"
#include "platform/window_system.h"
#include "shared/connection_table.h"

namespace kestrava {

namespace {

constexpr std::int32_t kMostEntries = 32767;

}  // namespace

void RemoveConnections(MSFlexGrid& grid, WindowSystem& windows) {
  frmRemoveconn dialog;
  const LoadedForm loaded(windows, dialog);
  dialog.lstConnections.Clear();
  std::vector<RowBookmark> offered;
  const std::int32_t lastRow = std::min(grid.Rows() - 1, kMostEntries);
  for (std::int32_t row = kHeadingRow + 1; row <= lastRow; ++row) {
    grid.SetRow(row);
    grid.SetCol(kNameColumn);
    dialog.lstConnections.AddItem(grid.Text());
    offered.push_back(grid.Bookmark(row));
  }
  windows.ShowModal(dialog);
  // From the highest number down. The icon's menu works while the dialog is open, and may have
  // emptied the table or loaded another list: only the rows that were offered are removed.
  std::for_each(dialog.colIndexes.rbegin(), dialog.colIndexes.rend(), [&](std::int32_t index) {
    const auto row = grid.RowOf(offered[static_cast<std::size_t>(index - 1)]);
    if (row) grid.RemoveItem(*row);
  });
}

}  // namespace kestrava
