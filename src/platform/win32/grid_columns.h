#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/flex_grid.h"
#include "platform/twips.h"
#include "platform/win32/ui_font.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

/// The columns of a list view that shows a grid. A width that the user has dragged stays until the
/// program gives one.
class GridColumns {
 public:
  explicit GridColumns(HWND list) : list_(list) {}

  int Count() const { return static_cast<int>(applied_.size()); }

  /// In pixels, as they are on the screen.
  std::vector<int> Widths() const;

  /// Shows the grid's columns, their headings, and the widths that are new.
  void Show(const MSFlexGrid& grid, const TwipScale& scale, const UiFont& font);

  /// The width of that column, or of all, is to be taken anew.
  void ForgetWidth(std::int32_t col);
  void ForgetWidths();

  /// Whether the columns, each wide enough for its heading and its sample, have room side by side,
  /// beside a scroll bar.
  static bool HaveRoom(const MSFlexGrid& grid, const TwipScale& scale, const UiFont& font);

 private:
  /// What a column was last given.
  struct Applied {
    std::int32_t twips;
    std::wstring heading;
  };

  int WidthOf(std::int32_t col) const;
  void Insert(const MSFlexGrid& grid, const TwipScale& scale, const UiFont& font, std::int32_t col);
  void ShowHeading(const MSFlexGrid& grid, std::int32_t col);
  void ShowWidth(const MSFlexGrid& grid, const TwipScale& scale, const UiFont& font,
                 std::int32_t col);

  HWND list_;
  std::vector<Applied> applied_;
};

}  // namespace kestrava
