#include "platform/flex_grid.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "platform/runtime_error.h"

namespace kestrava {

namespace {

constexpr std::int32_t kInitialRows = 2;
constexpr std::int32_t kInitialColWidth = 960;

void CheckCount(std::int32_t count) {
  if (count < 1) throw RuntimeError(kErrorInvalidCall, "a grid keeps its heading row and column");
}

}  // namespace

MSFlexGrid::MSFlexGrid(Form& form, const char* name) : Control(form, name, ControlKind::Grid) {
  widths_.assign(static_cast<std::size_t>(cols_), kInitialColWidth);
  samples_.resize(static_cast<std::size_t>(cols_));
  SetRows(kInitialRows);
}

void MSFlexGrid::SetRows(std::int32_t rows) {
  CheckCount(rows);
  const auto count = static_cast<std::size_t>(rows);
  MoveGap(std::min(rows, Rows()));
  below_.clear();
  while (above_.size() < count) {
    above_.emplace_back(nextSerial_++, static_cast<std::size_t>(cols_));
  }
  row_ = std::min(row_, rows - 1);
  TellShape();
}

void MSFlexGrid::SetCols(std::int32_t cols) {
  CheckCount(cols);
  cols_ = cols;
  const auto count = static_cast<std::size_t>(cols);
  widths_.resize(count, kInitialColWidth);
  samples_.resize(count);
  for (auto* part : {&above_, &below_}) {
    for (GridRow& row : *part) row.SetCols(count);
  }
  col_ = std::min(col_, cols - 1);
  TellShape();
}

std::optional<GridCell> MSFlexGrid::UserCell() const {
  const auto row = userRow_ ? RowOf(*userRow_) : std::nullopt;
  if (!row || userCol_ >= cols_) return std::nullopt;
  return GridCell{*row, userCol_};
}

bool MSFlexGrid::ChooseCell(std::int32_t row, std::int32_t col) {
  if (row >= Rows() || col >= cols_) return false;
  row_ = row;
  col_ = col;
  userRow_.reset();
  if (row > 0 && col > 0) userRow_ = Bookmark(row);
  userCol_ = col;
  return true;
}

void MSFlexGrid::SetText(std::string_view text) {
  if (text == TextView()) return;
  CurrentRow().SetText(static_cast<std::size_t>(col_), text);
  if (gridObserver_) gridObserver_->CellChanged(row_, col_);
}

void MSFlexGrid::SetCellBackColor(Color color) {
  CurrentRow().SetBackColor(static_cast<std::size_t>(col_), color);
  if (gridObserver_) gridObserver_->CellChanged(row_, col_);
}

std::int32_t MSFlexGrid::ColWidth(std::int32_t col) const {
  CheckIndex(col, cols_);
  return widths_[static_cast<std::size_t>(col)];
}

void MSFlexGrid::SetColWidth(std::int32_t col, std::int32_t twips) {
  CheckIndex(col, cols_);
  widths_[static_cast<std::size_t>(col)] = twips;
  if (gridObserver_) gridObserver_->ColWidthGiven(col);
  TellShape();
}

const std::string& MSFlexGrid::ColSample(std::int32_t col) const {
  CheckIndex(col, cols_);
  return samples_[static_cast<std::size_t>(col)];
}

void MSFlexGrid::SetColSample(std::int32_t col, std::string text) {
  CheckIndex(col, cols_);
  samples_[static_cast<std::size_t>(col)] = std::move(text);
  TellShape();
}

void MSFlexGrid::RemoveItem(std::int32_t row) {
  CheckIndex(row, Rows());
  if (row == 0) throw RuntimeError(kErrorInvalidCall, "the heading row can't be removed");
  MoveGap(row + 1);
  above_.pop_back();
  row_ = std::min(row_, Rows() - 1);
  TellShape();
}

RowBookmark MSFlexGrid::Bookmark(std::int32_t row) const {
  CheckIndex(row, Rows());
  return {RowAt(row).Serial()};
}

std::optional<std::int32_t> MSFlexGrid::RowOf(RowBookmark bookmark) const {
  const std::int32_t row = FirstRowFrom(bookmark.serial);
  if (row == Rows() || RowAt(row).Serial() != bookmark.serial) return std::nullopt;
  return row;
}

std::int32_t MSFlexGrid::RowAfter(RowBookmark bookmark) const {
  return FirstRowFrom(bookmark.serial + 1);
}

Color MSFlexGrid::BackColorAt(std::int32_t row, std::int32_t col) const {
  return RowAt(row).BackColor(static_cast<std::size_t>(col));
}

/// The number of the first row with that serial or a higher one; `Rows` if there is none.
std::int32_t MSFlexGrid::FirstRowFrom(std::uint64_t serial) const {
  // Whoever asks walks down the table, so it is the current row or the next one, as a rule.
  const std::uint64_t current = RowAt(row_).Serial();
  if (current == serial) return row_;
  if (current + 1 == serial) return row_ + 1;
  std::int32_t first = 0;
  for (std::int32_t end = Rows(); first < end;) {
    const std::int32_t middle = std::midpoint(first, end);
    if (RowAt(middle).Serial() < serial) {
      first = middle + 1;
    } else {
      end = middle;
    }
  }
  return first;
}

/// Makes `row`, or the end of the table, the first place below the gap.
void MSFlexGrid::MoveGap(std::int32_t row) {
  const auto place = static_cast<std::size_t>(row);
  while (above_.size() > place) {
    below_.push_back(std::move(above_.back()));
    above_.pop_back();
  }
  while (above_.size() < place) {
    above_.push_back(std::move(below_.back()));
    below_.pop_back();
  }
}

void MSFlexGrid::RaiseIndexOutOfRange() {
  throw RuntimeError(kErrorIndexOutOfRange, "no such row or column in the grid");
}

void MSFlexGrid::TellShape() {
  if (gridObserver_) gridObserver_->ShapeChanged();
}

}  // namespace kestrava
