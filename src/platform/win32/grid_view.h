#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/flex_grid.h"
#include "platform/win32/grid_columns.h"
#include "platform/win32/list_view.h"

namespace kestrava {

/// A grid as a list view: the heading row is the list's header, and the heading column its first
/// one, in which the lamps stand. So row `r` of the grid is item `r - 1`, and columns are the same.
///
/// A running check pass writes many cells between two frames of the screen. The view only notes
/// which rows have changed, and catches up once for each frame. The cell that shows as chosen is
/// the grid's `UserCell`, not its current one: it stays where it is while the program works in
/// others, moves with its row when rows above it go, and goes with its row.
class GridView final : public ListView, private GridObserver {
 public:
  /// The timer of the next frame of the screen: when its message comes, the view catches up.
  static constexpr std::uintptr_t kFrameTimer = 1;

  GridView(MSFlexGrid& grid, HWND window, int id);

  void Detach() override;
  void SetScale(const TwipScale& scale, unsigned dotsPerInch, const UiFont& font) override;
  bool HasRoom(const TwipScale& scale) const override;

 private:
  std::optional<LRESULT> Serve(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Describe(LVITEMW& item) const override;
  LRESULT TakeOther(NMHDR& note) override;

  void CellChanged(std::int32_t row, std::int32_t col) override;
  void ShapeChanged() override;
  void ColWidthGiven(std::int32_t col) override;
  void NoteRows(std::int32_t first, std::int32_t last);
  void CatchUp();
  void CatchUpRows();
  /// Has those of the items that are in sight painted again.
  void RedrawItems(int first, int last);
  void ShowColumns();
  void FollowUserCell();

  std::wstring CellText(std::int32_t row, std::int32_t col) const;
  LRESULT Draw(NMLVCUSTOMDRAW& drawing);

  bool TakeKey(WPARAM key);
  /// The system moves the focus by this key.
  LRESULT MoveByKey(WPARAM key, LPARAM lParam);
  void TakePress(POINT position);
  void MoveColumn(int column);
  void ShowCell(int item);
  /// The user has chosen the cell of that item in the user's column. @return whether it is there.
  bool Choose(int item);
  void ChooseHeading(std::int32_t row, std::int32_t col);
  void RaiseDoubleClick();

  /// What all items of one painting have in common.
  struct Drawn {
    std::vector<int> widths;  ///< of the columns, in pixels
    int selected = -1;        ///< item
  };

  TwipScale scale_;
  GridColumns columns_;
  Drawn drawn_;
  int column_ = 1;  ///< of the user's cell; its row is the list's focused item
  std::int32_t rows_ = 1;
  bool hasUserCell_ = false;  ///< the grid had a user's cell when the view last looked
  bool frameIsDue_ = false;
  bool shapeChanged_ = false;
  std::int32_t firstChanged_;
  std::int32_t lastChanged_;
  Observation<GridObserver*> observation_;
};

}  // namespace kestrava
