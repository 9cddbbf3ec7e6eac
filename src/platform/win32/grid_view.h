#pragma once

#include <cstdint>
#include <vector>

#include "platform/flex_grid.h"
#include "platform/win32/list_view.h"

namespace kestrava {

/// A grid as a list view: the heading row is the list's header, and the heading column its first
/// one, in which the lamps stand. So row `r` of the grid is item `r - 1`, and columns are the same.
///
/// A running check pass writes many cells between two frames of the screen. The view only notes
/// which rows have changed, and catches up once for each frame.
class GridView final : public ListView, private GridObserver {
 public:
  GridView(MSFlexGrid& grid, HWND window, int id);
  ~GridView() override;

  void Leave() override;
  void SetScale(const TwipScale& scale, unsigned dotsPerInch, const UiFont& font) override;

 private:
  std::optional<LRESULT> Serve(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Describe(LVITEMW& item) const override;
  LRESULT TakeOther(NMHDR& note) override;

  void CellChanged(std::int32_t row, std::int32_t col) override;
  void ShapeChanged() override;
  void NoteRows(std::int32_t first, std::int32_t last);
  void CatchUp();
  void CatchUpRows();
  void CatchUpColumns();
  void ShowColumn(std::int32_t col);

  std::wstring CellText(std::int32_t row, std::int32_t col) const;
  LRESULT Draw(NMLVCUSTOMDRAW& drawing) const;

  bool TakeKey(WPARAM key);
  void TakePress(POINT position);
  void MoveColumn(int column);
  void ShowCell(int item);
  /// Makes the user's cell the grid's current one.
  bool TakeCursor(std::int32_t row, std::int32_t col);
  void RaiseDoubleClick();

  TwipScale scale_;
  int column_ = 1;  ///< of the user's cell; its row is the list's focused item
  std::int32_t rows_ = 1;
  /// The widths last taken from the grid, in twips, so that a width dragged by the user stays until
  /// the program sets another.
  std::vector<std::int32_t> appliedWidths_;
  bool frameIsDue_ = false;
  bool shapeChanged_ = false;
  std::int32_t firstChanged_;
  std::int32_t lastChanged_;
};

}  // namespace kestrava
