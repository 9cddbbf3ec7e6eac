#include "platform/qt/grid_view.h"

#include <QGuiApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QStyleHints>
#include <QToolTip>
#include <algorithm>

#include "platform/qt/cell_delegate.h"
#include "platform/qt/plain_tip.h"
#include "platform/qt/text.h"

namespace kestrava {

GridView::GridView(MSFlexGrid& grid, QWidget* parent)
    : QTableView(parent), grid_(&grid), model_(grid), lamps_(new LampHeader(this)) {
  setVerticalHeader(lamps_);
  setModel(&model_);
  setItemDelegate(new CellDelegate(this));
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setSelectionBehavior(SelectItems);
  setTabKeyNavigation(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(ScrollPerPixel);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsClickable(true);
  horizontalHeader()->setMinimumSectionSize(1);
  horizontalHeader()->viewport()->installEventFilter(this);

  connect(&model_, &GridModel::ShapeCaughtUp, this, &GridView::FollowShape);
  connect(&model_, &GridModel::WidthGiven, this, [this](int gridColumn) {
    const auto column = static_cast<std::size_t>(gridColumn);
    if (column < appliedWidths_.size()) appliedWidths_[column] = -1;
  });
  connect(lamps_, &QHeaderView::sectionPressed, this,
          [this](int section) { ClickFixedCell(section + 1, 0); });
  connect(horizontalHeader(), &QHeaderView::sectionPressed, this,
          [this](int section) { ClickFixedCell(0, section + 1); });
}

void GridView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                           const QList<int>&) {
  viewport()->update(visualRect(topLeft) | visualRect(bottomRight));
}

void GridView::SetScale(const TwipScale& scale) {
  model_.CatchUp();
  scale_ = scale;
  const int lineHeight = fontMetrics().height();
  lamps_->setDefaultSectionSize(lineHeight + lineHeight / 3);
  appliedWidths_.clear();
  ApplyColumnWidths();
}

bool GridView::HasRoom(const TwipScale& scale, int width) {
  if (!grid_) return true;
  model_.CatchUp();
  const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  int taken = 2 * frameWidth() + scrollBar + scale.ToPixels(grid_->ColWidth(0));
  for (int column = 0; column < grid_->Cols() - 1; ++column) taken += WidthFor(scale, column);
  return taken <= width;
}

void GridView::Detach() {
  grid_ = nullptr;
  model_.Detach();
}

void GridView::showEvent(QShowEvent* event) {
  model_.CatchUp();
  QTableView::showEvent(event);
}

void GridView::mousePressEvent(QMouseEvent* event) {
  pressedAt_ = event->timestamp();
  model_.CatchUp();
  QTableView::mousePressEvent(event);
  if (indexAt(event->position().toPoint()).isValid()) ChooseCurrentIndex();
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
  const QModelIndex before = currentIndex();
  QTableView::mouseMoveEvent(event);
  if (currentIndex() != before) ChooseCurrentIndex();
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  // The first press may have closed a dialog that stood here.
  const auto longest =
      static_cast<quint64>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
  if (event->timestamp() - pressedAt_ > longest) return mousePressEvent(event);
  model_.CatchUp();
  QTableView::mouseDoubleClickEvent(event);
  const bool onCell = indexAt(event->position().toPoint()).isValid();
  if (onCell && event->button() == Qt::LeftButton) RaiseDoubleClick();
}

void GridView::keyPressEvent(QKeyEvent* event) {
  model_.CatchUp();
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return RaiseDoubleClick();
  const QModelIndex before = currentIndex();
  QTableView::keyPressEvent(event);
  if (currentIndex() != before) ChooseCurrentIndex();
}

bool GridView::eventFilter(QObject* watched, QEvent* event) {
  if (watched != horizontalHeader()->viewport() || event->type() != QEvent::ToolTip) {
    return QTableView::eventFilter(watched, event);
  }
  const auto* help = static_cast<QHelpEvent*>(event);
  TipHeading(help->pos(), help->globalPos());
  return true;
}

void GridView::rowsInserted(const QModelIndex& parent, int first, int last) {
  QTableView::rowsInserted(parent, first, last);
  if (first == last) scrollTo(model_.index(last, 0));
}

void GridView::FollowShape() {
  ApplyColumnWidths();
  FollowUserCell();
}

void GridView::ApplyColumnWidths() {
  if (!grid_) return;
  const std::int32_t columns = grid_->Cols();
  appliedWidths_.resize(static_cast<std::size_t>(columns), -1);
  for (std::int32_t column = 0; column < columns; ++column) {
    const std::int32_t twips = grid_->ColWidth(column);
    std::int32_t& applied = appliedWidths_[static_cast<std::size_t>(column)];
    if (applied == twips) continue;
    applied = twips;
    if (column == 0) {
      lamps_->setFixedWidth(scale_.ToPixels(twips));
      updateGeometries();
    } else {
      setColumnWidth(column - 1, WidthFor(scale_, column - 1));
    }
  }
}

int GridView::WidthFor(const TwipScale& scale, int column) const {
  const std::string& sample = grid_->ColSample(column + 1);
  // Another text of that kind may be a little wider.
  const int slack = fontMetrics().averageCharWidth();
  return std::max({scale.ToPixels(grid_->ColWidth(column + 1)),
                   horizontalHeader()->sectionSizeHint(column),
                   sample.empty() ? 0 : CellDelegate::WidthFor(ToShown(sample), *this) + slack});
}

void GridView::FollowUserCell() {
  if (!grid_ || !hasUserCell_) return;
  const auto cell = grid_->UserCell();
  if (!cell) {
    hasUserCell_ = false;
    selectionModel()->clear();
    return;
  }
  if (cell->row == currentIndex().row() + 1) return;
  // The rows on the screen stay where they are.
  setAutoScroll(false);
  setCurrentIndex(model_.index(cell->row - 1, std::max(currentIndex().column(), 0)));
  setAutoScroll(true);
}

bool GridView::ChooseCurrentIndex() {
  if (!grid_ || !grid_->ChooseCell(currentIndex().row() + 1, currentIndex().column() + 1)) {
    return false;
  }
  hasUserCell_ = true;
  return true;
}

void GridView::RaiseDoubleClick() {
  if (currentIndex().isValid() && ChooseCurrentIndex()) grid_->DblClick.Raise();
}

void GridView::ClickFixedCell(int gridRow, int gridColumn) {
  if (grid_) grid_->ChooseCell(gridRow, gridColumn);
  hasUserCell_ = false;
  clearSelection();
}

void GridView::TipHeading(const QPoint& position, const QPoint& screenPosition) {
  const QHeaderView& heading = *horizontalHeader();
  const int section = heading.logicalIndexAt(position);
  if (section < 0 || heading.sectionSizeHint(section) <= heading.sectionSize(section)) {
    QToolTip::hideText();
    return;
  }
  const QRect place(heading.sectionViewportPosition(section), 0, heading.sectionSize(section),
                    heading.height());
  ShowPlainTip(model_.headerData(section, Qt::Horizontal, Qt::DisplayRole).toString(),
               screenPosition, heading.viewport(), place);
}

}  // namespace kestrava
