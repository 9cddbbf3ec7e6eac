#include "platform/flex_grid.h"

#include <algorithm>
#include <utility>

#include "platform/runtime_error.h"

namespace kestrava {

namespace {

constexpr std::int32_t kInitialRows = 2;
constexpr std::int32_t kInitialColWidth = 960;

void CheckIndex(std::int32_t index, std::int32_t count) {
  if (index < 0 || index >= count) {
    throw RuntimeError(kErrorIndexOutOfRange, "no such row or column in the grid");
  }
}

void CheckCount(std::int32_t count) {
  if (count < 1) throw RuntimeError(kErrorInvalidCall, "a grid keeps its heading row and column");
}

}  // namespace

MSFlexGrid::MSFlexGrid(Form& form, const char* name) : Control(form, name, ControlKind::Grid) {
  widths_.assign(static_cast<std::size_t>(cols_), kInitialColWidth);
  SetRows(kInitialRows);
}

void MSFlexGrid::SetRows(std::int32_t rows) {
  CheckCount(rows);
  const auto count = static_cast<std::size_t>(rows);
  if (count < rows_.size()) rows_.erase(rows_.begin() + rows, rows_.end());
  while (rows_.size() < count) {
    rows_.push_back({nextSerial_++, std::vector<Cell>(static_cast<std::size_t>(cols_))});
  }
  row_ = std::min(row_, rows - 1);
  TellShape();
}

void MSFlexGrid::SetCols(std::int32_t cols) {
  CheckCount(cols);
  cols_ = cols;
  const auto count = static_cast<std::size_t>(cols);
  widths_.resize(count, kInitialColWidth);
  for (RowData& row : rows_) row.cells.resize(count);
  col_ = std::min(col_, cols - 1);
  TellShape();
}

void MSFlexGrid::SetRow(std::int32_t row) {
  CheckIndex(row, Rows());
  row_ = row;
}

void MSFlexGrid::SetCol(std::int32_t col) {
  CheckIndex(col, cols_);
  col_ = col;
}

void MSFlexGrid::SetText(std::string text) {
  CurrentCell().text = std::move(text);
  if (gridObserver_) gridObserver_->CellChanged(row_, col_);
}

void MSFlexGrid::SetCellBackColor(Color color) {
  CurrentCell().backColor = color;
  if (gridObserver_) gridObserver_->CellChanged(row_, col_);
}

std::int32_t MSFlexGrid::ColWidth(std::int32_t col) const {
  CheckIndex(col, cols_);
  return widths_[static_cast<std::size_t>(col)];
}

void MSFlexGrid::SetColWidth(std::int32_t col, std::int32_t twips) {
  CheckIndex(col, cols_);
  widths_[static_cast<std::size_t>(col)] = twips;
  TellShape();
}

void MSFlexGrid::RemoveItem(std::int32_t row) {
  CheckIndex(row, Rows());
  if (row == 0) throw RuntimeError(kErrorInvalidCall, "the heading row can't be removed");
  rows_.erase(rows_.begin() + row);
  row_ = std::min(row_, Rows() - 1);
  TellShape();
}

RowBookmark MSFlexGrid::Bookmark(std::int32_t row) const {
  CheckIndex(row, Rows());
  return {rows_[static_cast<std::size_t>(row)].serial};
}

std::optional<std::int32_t> MSFlexGrid::RowOf(RowBookmark bookmark) const {
  const auto found = std::ranges::lower_bound(rows_, bookmark.serial, {}, &RowData::serial);
  if (found == rows_.end() || found->serial != bookmark.serial) return std::nullopt;
  return static_cast<std::int32_t>(found - rows_.begin());
}

std::int32_t MSFlexGrid::RowBehind(RowBookmark bookmark) const {
  const auto found = std::ranges::upper_bound(rows_, bookmark.serial, {}, &RowData::serial);
  return static_cast<std::int32_t>(found - rows_.begin());
}

const MSFlexGrid::Cell& MSFlexGrid::CellAt(std::int32_t row, std::int32_t col) const {
  return rows_[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(col)];
}

const std::string& MSFlexGrid::TextAt(std::int32_t row, std::int32_t col) const {
  return CellAt(row, col).text;
}

Color MSFlexGrid::BackColorAt(std::int32_t row, std::int32_t col) const {
  return CellAt(row, col).backColor;
}

void MSFlexGrid::TellShape() {
  if (gridObserver_) gridObserver_->ShapeChanged();
}

}  // namespace kestrava
