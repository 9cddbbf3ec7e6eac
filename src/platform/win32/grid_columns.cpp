#include "platform/win32/grid_columns.h"

#include <algorithm>
#include <utility>

#include "platform/win32/wide_text.h"

namespace kestrava {

namespace {

constexpr std::int32_t kNotApplied = -1;
constexpr int kTextPadding = 240;  ///< in twips, on both sides of a text together

int WidthFor(const MSFlexGrid& grid, const TwipScale& scale, const UiFont& font, std::int32_t col) {
  int width = scale.ToPixels(grid.ColWidth(col));
  for (const std::string& text : {grid.TextAt(0, col), grid.ColSample(col)}) {
    if (text.empty()) continue;
    const int least = font.SizeOf(ToShownLine(text), kOneLine, Ampersand::Itself).width;
    // Another text of that kind may be a little wider.
    width = std::max(width, least + scale.ToPixels(kTextPadding));
  }
  return width;
}

std::wstring HeadingOf(const MSFlexGrid& grid, std::int32_t col) {
  return ToShownLine(grid.TextViewAt(0, col));
}

}  // namespace

int GridColumns::WidthOf(std::int32_t col) const {
  return static_cast<int>(SendMessageW(list_, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(col), 0));
}

std::vector<int> GridColumns::Widths() const {
  std::vector<int> widths;
  for (int col = 0; col < Count(); ++col) widths.push_back(WidthOf(col));
  return widths;
}

void GridColumns::Show(const MSFlexGrid& grid, const TwipScale& scale, const UiFont& font) {
  const auto columns = static_cast<std::size_t>(grid.Cols());
  while (applied_.size() > columns) {
    applied_.pop_back();
    SendMessageW(list_, LVM_DELETECOLUMN, applied_.size(), 0);
  }
  for (std::int32_t col = 0; col < grid.Cols(); ++col) {
    // Whatever is given anew is painted anew, with all that stands below it.
    if (col < Count()) {
      ShowHeading(grid, col);
      ShowWidth(grid, scale, font, col);
    } else {
      Insert(grid, scale, font, col);
    }
  }
}

void GridColumns::Insert(const MSFlexGrid& grid, const TwipScale& scale, const UiFont& font,
                         std::int32_t col) {
  Applied& applied = applied_.emplace_back(grid.ColWidth(col), HeadingOf(grid, col));
  LVCOLUMNW column{};
  column.mask = LVCF_TEXT | LVCF_WIDTH;
  column.pszText = applied.heading.data();
  column.cx = WidthFor(grid, scale, font, col);
  SendMessageW(list_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(col),
               reinterpret_cast<LPARAM>(&column));
}

void GridColumns::ShowHeading(const MSFlexGrid& grid, std::int32_t col) {
  std::wstring& heading = applied_[static_cast<std::size_t>(col)].heading;
  if (std::wstring before = std::exchange(heading, HeadingOf(grid, col)); before == heading) return;
  LVCOLUMNW column{};
  column.mask = LVCF_TEXT;
  column.pszText = heading.data();
  SendMessageW(list_, LVM_SETCOLUMNW, static_cast<WPARAM>(col), reinterpret_cast<LPARAM>(&column));
}

void GridColumns::ShowWidth(const MSFlexGrid& grid, const TwipScale& scale, const UiFont& font,
                            std::int32_t col) {
  const std::int32_t twips = grid.ColWidth(col);
  if (std::exchange(applied_[static_cast<std::size_t>(col)].twips, twips) == twips) return;
  const int width = WidthFor(grid, scale, font, col);
  if (width == WidthOf(col)) return;
  SendMessageW(list_, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(col), width);
}

void GridColumns::ForgetWidth(std::int32_t col) {
  if (col < Count()) applied_[static_cast<std::size_t>(col)].twips = kNotApplied;
}

void GridColumns::ForgetWidths() {
  for (Applied& column : applied_) column.twips = kNotApplied;
}

bool GridColumns::HaveRoom(const MSFlexGrid& grid, const TwipScale& scale, const UiFont& font) {
  int taken = 2 * GetSystemMetrics(SM_CXEDGE) + GetSystemMetrics(SM_CXVSCROLL);
  for (std::int32_t col = 0; col < grid.Cols(); ++col) taken += WidthFor(grid, scale, font, col);
  return taken <= scale.PlaceOf(grid.Spec()).width;
}

}  // namespace kestrava
