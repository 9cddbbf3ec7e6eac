#include "shared/connection_table.h"

#include <chrono>
#include <limits>

#include "platform/clock.h"
#include "platform/flex_grid.h"
#include "platform/runtime_error.h"

namespace kestrava {

namespace {

struct ColumnSpec {
  const char* heading;
  std::int32_t width;  ///< in twips
};

constexpr ColumnSpec kColumns[kColumnCount] = {
    {"", 200},        {"Connection Name", 2600}, {"Address", 1500},
    {"Status", 2100}, {"Checking", 1200},        {"Last Checked", 1800},
};

/// A moment whose text is as long as any: two digits in each place, in the afternoon.
constexpr auto kLongMoment = std::chrono::local_days(std::chrono::year(2028) / 12 / 20) +
                             std::chrono::hours(22) + std::chrono::minutes(58) +
                             std::chrono::seconds(58);

}  // namespace

void ConnectionGridSetup(MSFlexGrid& grid) {
  grid.SetColWidth(kLampColumn, kColumns[kLampColumn].width);
  grid.SetCols(kColumnCount);
  grid.SetRows(kHeadingRow + 1);
  grid.SetRow(kHeadingRow);
  for (std::int32_t col = kNameColumn; col < kColumnCount; ++col) {
    grid.SetCol(col);
    grid.SetColWidth(col, kColumns[col].width);
    grid.SetText(kColumns[col].heading);
  }
}

void GiveDatesRoom(MSFlexGrid& grid, const Clock& clock) {
  grid.SetColSample(kLastCheckedColumn, clock.GeneralDateText(kLongMoment));
}

void AppendConnectionRow(MSFlexGrid& grid) {
  if (grid.Rows() == std::numeric_limits<std::int32_t>::max()) {
    throw RuntimeError(kErrorOverflow, "the table is full");
  }
  grid.SetRows(grid.Rows() + 1);
  grid.SetRow(grid.Rows() - 1);
}

bool MoveToRow(MSFlexGrid& grid, RowBookmark row, Column column) {
  const auto number = grid.RowOf(row);
  if (!number) return false;
  grid.SetRow(*number);
  grid.SetCol(column);
  return true;
}

void WriteCell(MSFlexGrid& grid, Column column, std::string_view text) {
  grid.SetCol(column);
  grid.SetText(text);
}

}  // namespace kestrava
