#pragma once

#include <cstdint>
#include <string_view>

namespace kestrava {

class Clock;
class MSFlexGrid;
struct RowBookmark;

/// The columns of the connection table.
enum Column : std::int32_t {
  kLampColumn,  ///< no text; its background colour is the row's lamp
  kNameColumn,
  kAddressColumn,
  kStatusColumn,
  kCheckingColumn,
  kLastCheckedColumn,
  kColumnCount,
};

/// Row 0 holds the headings, each row from 1 on is one connection.
inline constexpr std::int32_t kHeadingRow = 0;

inline constexpr const char* kUnchecked = "Unchecked";
inline constexpr const char* kCheckingEnabled = "Enabled";
inline constexpr const char* kCheckingDisabled = "Disabled";

/// Resets the table to its heading row and its column widths.
void ConnectionGridSetup(MSFlexGrid& grid);

/// Lets the column of dates be wide enough for any, as the user writes them.
void GiveDatesRoom(MSFlexGrid& grid, const Clock& clock);

/// Adds a row of empty cells at the bottom and makes it the current one.
/// @throws RuntimeError (6) if the number of rows would no longer fit 32 bits.
void AppendConnectionRow(MSFlexGrid& grid);

/// Makes a cell of the marked row the current one. @return false, with nothing moved, if the row is
/// gone.
bool MoveToRow(MSFlexGrid& grid, RowBookmark row, Column column);

/// Makes a cell of the current row the current one and writes it.
void WriteCell(MSFlexGrid& grid, Column column, std::string_view text);

}  // namespace kestrava
