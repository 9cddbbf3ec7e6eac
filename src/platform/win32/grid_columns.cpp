#include "platform/win32/grid_columns.h"

#include <algorithm>
#include <string>
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

}  // namespace

void GridColumns::Show(const MSFlexGrid& grid, const TwipScale& scale, const UiFont& font) {
  const auto columns = static_cast<std::size_t>(grid.Cols());
  while (applied_.size() > columns) {
    applied_.pop_back();
    SendMessageW(list_, LVM_DELETECOLUMN, applied_.size(), 0);
  }
  while (applied_.size() < columns) {
    LVCOLUMNW column{};
    SendMessageW(list_, LVM_INSERTCOLUMNW, applied_.size(), reinterpret_cast<LPARAM>(&column));
    applied_.push_back(kNotApplied);
  }
  for (std::int32_t col = 0; col < grid.Cols(); ++col) {
    const auto place = static_cast<std::size_t>(col);
    ShowHeading(grid, col);
    const std::int32_t twips = grid.ColWidth(col);
    if (std::exchange(applied_[place], twips) == twips) continue;
    SendMessageW(list_, LVM_SETCOLUMNWIDTH, place, WidthFor(grid, scale, font, col));
  }
}

void GridColumns::ForgetWidth(std::int32_t col) {
  if (col < Count()) applied_[static_cast<std::size_t>(col)] = kNotApplied;
}

void GridColumns::ForgetWidths() { std::ranges::fill(applied_, kNotApplied); }

bool GridColumns::HaveRoom(const MSFlexGrid& grid, const TwipScale& scale, const UiFont& font) {
  int taken = 2 * GetSystemMetrics(SM_CXEDGE) + GetSystemMetrics(SM_CXVSCROLL);
  for (std::int32_t col = 0; col < grid.Cols(); ++col) taken += WidthFor(grid, scale, font, col);
  return taken <= scale.PlaceOf(grid.Spec()).width;
}

void GridColumns::ShowHeading(const MSFlexGrid& grid, std::int32_t col) const {
  std::wstring heading = ToShownLine(grid.TextViewAt(0, col));
  LVCOLUMNW column{};
  column.mask = LVCF_TEXT;
  column.pszText = heading.data();
  SendMessageW(list_, LVM_SETCOLUMNW, static_cast<WPARAM>(col), reinterpret_cast<LPARAM>(&column));
}

}  // namespace kestrava
