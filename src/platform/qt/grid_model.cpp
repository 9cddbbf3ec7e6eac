#include "platform/qt/grid_model.h"

#include <QColor>
#include <QTimerEvent>
#include <algorithm>
#include <limits>
#include <utility>

#include "platform/qt/text.h"

namespace kestrava {

namespace {

constexpr std::int32_t kNothingFirst = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kNothingLast = -1;

QVariant LampData(Color color, int role) {
  if (role == Qt::AccessibleTextRole || role == Qt::ToolTipRole) return LampMeaning(color);
  if (role != Qt::DecorationRole || color == kNoColor) return {};
  return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                static_cast<int>(color >> 16 & 0xFF));
}

}  // namespace

GridModel::GridModel(MSFlexGrid& grid)
    : grid_(&grid),
      rows_(grid.Rows() - 1),
      columns_(grid.Cols() - 1),
      firstChanged_(kNothingFirst),
      lastChanged_(kNothingLast),
      observation_(grid.ObserveCells(*this)) {}

void GridModel::CatchUp() {
  frame_.stop();
  if (!grid_) return;
  const bool shapeChanged = std::exchange(shapeChanged_, false);
  if (shapeChanged) {
    CatchUpColumns(grid_->Cols() - 1);
    CatchUpRows(grid_->Rows() - 1);
  }
  const bool headingChanged = firstChanged_ == 0;
  const int first = std::max(std::exchange(firstChanged_, kNothingFirst) - 1, 0);
  const int last = std::min(std::exchange(lastChanged_, kNothingLast), rows_) - 1;
  if (first <= last && columns_ > 0) {
    // The lamp follows a change of whichever cell of its row.
    const int firstColumn =
        std::clamp(std::exchange(firstColumnChanged_, kNothingFirst) - 1, 0, columns_ - 1);
    emit dataChanged(index(first, firstColumn), index(last, columns_ - 1));
  }
  if (headingChanged && columns_ > 0) emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
  if (shapeChanged) emit ShapeCaughtUp();
}

void GridModel::Detach() {
  observation_ = {};
  grid_ = nullptr;
  frame_.stop();
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || !grid_ || !index.isValid()) return {};
  const int row = index.row() + 1;
  const int column = index.column() + 1;
  if (row >= grid_->Rows() || column >= grid_->Cols()) return {};
  return ToShownLine(grid_->TextViewAt(row, column));
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (!grid_ || section < 0) return {};
  if (orientation == Qt::Vertical) {
    return section + 1 < grid_->Rows() ? LampData(grid_->BackColorAt(section + 1, 0), role)
                                       : QVariant();
  }
  if (role == Qt::TextAlignmentRole) return {Qt::AlignLeft | Qt::AlignVCenter};
  if (role != Qt::DisplayRole || section + 1 >= grid_->Cols()) return {};
  return ToShownLine(grid_->TextViewAt(0, section + 1));
}

void GridModel::timerEvent(QTimerEvent* event) {
  if (event->timerId() == frame_.timerId()) CatchUp();
}

void GridModel::CellChanged(std::int32_t row, std::int32_t column) {
  if (column > 0) firstColumnChanged_ = std::min(firstColumnChanged_, column);
  NoteRows(row, row);
}

void GridModel::ShapeChanged() {
  shapeChanged_ = true;
  firstColumnChanged_ = 0;
  NoteRows(0, std::numeric_limits<std::int32_t>::max());
}

void GridModel::NoteRows(std::int32_t first, std::int32_t last) {
  firstChanged_ = std::min(firstChanged_, first);
  lastChanged_ = std::max(lastChanged_, last);
  if (!frame_.isActive()) frame_.start(kViewFrameMilliseconds, this);
}

void GridModel::CatchUpRows(int rows) {
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginRemoveRows({}, rows, rows_ - 1);
    rows_ = rows;
    endRemoveRows();
  }
}

void GridModel::CatchUpColumns(int columns) {
  if (columns > columns_) {
    beginInsertColumns({}, columns_, columns - 1);
    columns_ = columns;
    endInsertColumns();
  } else if (columns < columns_) {
    beginRemoveColumns({}, columns, columns_ - 1);
    columns_ = columns;
    endRemoveColumns();
  }
}

}  // namespace kestrava
