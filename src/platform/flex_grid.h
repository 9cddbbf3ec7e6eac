#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/color.h"
#include "platform/control.h"
#include "platform/grid_row.h"

namespace kestrava {

/// Names one row of a grid for as long as the row exists, whatever happens to its number.
struct RowBookmark {
  std::uint64_t serial;

  friend auto operator<=>(const RowBookmark&, const RowBookmark&) = default;
};

/// A place in a grid, as it is at that moment.
struct GridCell {
  std::int32_t row;
  std::int32_t col;
};

/// A view catches up with its grid once in so many milliseconds, which is a frame of most screens.
inline constexpr int kViewFrameMilliseconds = 16;

/// The view that a desktop puts on a grid. Each call tells what has just changed.
class GridObserver {
 public:
  /// The text or the colour of this cell has changed.
  virtual void CellChanged(std::int32_t row, std::int32_t col) = 0;
  /// The number of rows or columns, or a column's width, has changed; with `Rows` any cell may
  /// stand in another row.
  virtual void ShapeChanged() = 0;
  /// The program has given this column a width, be it the one that it had. `ShapeChanged` follows.
  virtual void ColWidthGiven(std::int32_t col) = 0;

 protected:
  ~GridObserver() = default;
};

/// A table of text cells. Row 0 and column 0 are fixed headings. A new grid has 2 rows and 2
/// columns. Indexes count from 0; a `Row` or `Col` outside the table is an error.
///
/// Texts and colours are read and written at the current cell, `Row` and `Col`, which every piece
/// of the program moves to where it works. The user's choice is another one: `UserCell`.
class MSFlexGrid : public Control {
 public:
  MSFlexGrid(Form& form, const char* name);

  /// Raised when the user double-clicks a cell, or presses Enter on it; that cell has become the
  /// user's and the current one.
  Event DblClick;

  std::int32_t Rows() const { return static_cast<std::int32_t>(above_.size() + below_.size()); }
  /// Grows the table at the bottom by empty rows, or cuts it there. A current row that is cut off
  /// gives way to the last row left.
  /// @throws RuntimeError (5) below 1, the heading row.
  void SetRows(std::int32_t rows);

  std::int32_t Cols() const { return cols_; }
  /// @throws RuntimeError (5) below 1, the heading column.
  void SetCols(std::int32_t cols);

  std::int32_t Row() const { return row_; }
  std::int32_t Col() const { return col_; }
  /// @throws RuntimeError (9) outside the table.
  void SetRow(std::int32_t row) {
    CheckIndex(row, Rows());
    row_ = row;
  }
  void SetCol(std::int32_t col) {
    CheckIndex(col, cols_);
    col_ = col;
  }

  /// The cell that the user has chosen by mouse or keys, wherever that is now and wherever the
  /// current one has gone since. Nothing if there is none: at first, after a click on a heading,
  /// and once its row has gone.
  std::optional<GridCell> UserCell() const;
  /// For the desktop: the user has clicked this cell or gone there by keys. It becomes the current
  /// one and, unless it is a heading, the user's.
  /// @return false, with nothing changed, if there is no such cell any more.
  bool ChooseCell(std::int32_t row, std::int32_t col);

  /// The current cell.
  std::string Text() const { return std::string(TextView()); }
  /// The same without a copy; it stays until the next change of the grid.
  std::string_view TextView() const { return RowAt(row_).Text(static_cast<std::size_t>(col_)); }
  void SetText(std::string_view text);
  void SetCellBackColor(Color color);

  /// In twips; 960, a width of the grid's own, until it is set.
  /// @throws RuntimeError (9) outside the table.
  std::int32_t ColWidth(std::int32_t col) const;
  void SetColWidth(std::int32_t col, std::int32_t twips);

  /// One of the longest texts that the column is to show. A desktop that has room beyond the widths
  /// of all columns gives the column as much of it as the text needs; empty for no such text.
  /// @throws RuntimeError (9) outside the table.
  const std::string& ColSample(std::int32_t col) const;
  void SetColSample(std::int32_t col, std::string text);

  /// Removes a row; the rows below move up. Costs the more the farther the row is from the place of
  /// the latest change.
  /// @throws RuntimeError (9) outside the table, (5) for the heading row.
  void RemoveItem(std::int32_t row);

  /// @throws RuntimeError (9) outside the table.
  RowBookmark Bookmark(std::int32_t row) const;
  /// The number of the row now, or nothing once the row is gone: removed, cut off by a smaller
  /// `Rows`, or cleared away for another list.
  std::optional<std::int32_t> RowOf(RowBookmark bookmark) const;
  /// The number of the first row below the marked one that came later to the table, whether or not
  /// the marked one is still there; `Rows` if there is none.
  std::int32_t RowAfter(RowBookmark bookmark) const;

  /// For showing a cell without moving the current one. The indexes must be inside the table.
  std::string TextAt(std::int32_t row, std::int32_t col) const {
    return std::string(TextViewAt(row, col));
  }
  /// The same without a copy; it stays until the next change of the grid.
  std::string_view TextViewAt(std::int32_t row, std::int32_t col) const {
    return RowAt(row).Text(static_cast<std::size_t>(col));
  }
  /// The bytes of all texts of a row.
  std::size_t TextSizeAt(std::int32_t row) const { return RowAt(row).TextSize(); }
  Color BackColorAt(std::int32_t row, std::int32_t col) const;

  /// Tells the one view of what changes in the cells.
  Observation<GridObserver*> ObserveCells(GridObserver& view) { return {gridObserver_, &view}; }

 private:
  static void CheckIndex(std::int32_t index, std::int32_t count) {
    if (index < 0 || index >= count) RaiseIndexOutOfRange();
  }
  [[noreturn]] static void RaiseIndexOutOfRange();

  const GridRow& RowAt(std::int32_t row) const {
    const auto index = static_cast<std::size_t>(row);
    if (index < above_.size()) return above_[index];
    return below_[above_.size() + below_.size() - 1 - index];
  }
  GridRow& CurrentRow() { return const_cast<GridRow&>(std::as_const(*this).RowAt(row_)); }
  std::int32_t FirstRowFrom(std::uint64_t serial) const;
  void MoveGap(std::int32_t row);
  void TellShape();

  /// The rows above the place of the latest change from the top down, and those below it from the
  /// bottom up, so that a change at that place moves no other row. Rows come only at the bottom and
  /// keep their order, so serials ascend down the table and a bookmark finds its row by binary
  /// search.
  std::vector<GridRow> above_;
  std::vector<GridRow> below_;
  std::vector<std::int32_t> widths_;
  std::vector<std::string> samples_;
  std::int32_t cols_ = 2;
  std::int32_t row_ = 1;
  std::int32_t col_ = 1;
  std::optional<RowBookmark> userRow_;
  std::int32_t userCol_ = 0;
  std::uint64_t nextSerial_ = 0;
  GridObserver* gridObserver_ = nullptr;
};

}  // namespace kestrava
