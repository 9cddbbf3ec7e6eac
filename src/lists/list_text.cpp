#include "lists/list_text.h"

#include <algorithm>

#include "platform/flex_grid.h"
#include "platform/runtime_error.h"
#include "platform/text_reader.h"
#include "shared/connection_table.h"

namespace kestrava {

namespace {

constexpr std::string_view kMagicLine = "ZR_Kestrava_ConnectionList";
constexpr std::string_view kSeparator = ",";

// No list comes near these, and a file that does costs no time beyond them. A line has room for
// five texts as long as a text box takes (32767 characters of four bytes each).
constexpr std::int32_t kMostLines = 2 * 1024 * 1024;
constexpr std::size_t kLongestLine = 1024 * 1024;

void AppendConnection(MSFlexGrid& grid, std::string_view line) {
  AppendConnectionRow(grid);
  if (line.size() > kLongestLine) {
    throw RuntimeError(kErrorOverflow, "a line of the list is too long");
  }
  for (const Column column : {kNameColumn, kAddressColumn, kStatusColumn, kCheckingColumn}) {
    const std::size_t comma = line.find(kSeparator);
    if (comma == std::string_view::npos) {
      throw RuntimeError(kErrorInvalidCall, "a line of the list has fewer than four commas");
    }
    WriteCell(grid, column, line.substr(0, comma));
    line.remove_prefix(comma + kSeparator.size());
  }
  WriteCell(grid, kLastCheckedColumn, line);
}

}  // namespace

std::string ListText(MSFlexGrid& grid) {
  std::size_t bytes = kMagicLine.size() + kListLineEnd.size();
  for (std::int32_t row = kHeadingRow + 1; row < grid.Rows(); ++row) {
    bytes += kListLineEnd.size() + grid.TextSizeAt(row) + kColumnCount * kSeparator.size();
  }
  // As long as it can get, to be written without asking for room at each of so many short texts.
  std::string text(bytes, '\0');
  auto end = std::ranges::copy(kMagicLine, text.begin()).out;
  for (std::int32_t row = kHeadingRow + 1; row < grid.Rows(); ++row) {
    grid.SetRow(row);
    for (std::int32_t col = kNameColumn; col < grid.Cols(); ++col) {
      grid.SetCol(col);
      end = std::ranges::copy(col == kNameColumn ? kListLineEnd : kSeparator, end).out;
      end = std::ranges::copy(grid.TextView(), end).out;
    }
  }
  text.erase(end, text.end());
  return text;
}

IsList ReadListText(TextReader& list, MSFlexGrid& grid) {
  bool magicLineSeen = false;
  for (std::int32_t lines = 0; !list.AtEnd(); ++lines) {
    if (lines == kMostLines) throw RuntimeError(kErrorOverflow, "the list has too many lines");
    const std::string_view line = list.ReadLine();
    if (line == kMagicLine) {
      magicLineSeen = true;
    } else if (magicLineSeen) {
      AppendConnection(grid, line);
    }
  }
  return magicLineSeen ? IsList::Yes : IsList::No;
}

}  // namespace kestrava
