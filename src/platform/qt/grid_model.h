#pragma once

#include <QAbstractTableModel>
#include <QBasicTimer>

#include "platform/flex_grid.h"

namespace kestrava {

/// A grid as a Qt model: the heading row is the horizontal header, the heading column the vertical
/// one. So row `r` and column `c` of the grid are `r - 1` and `c - 1` here.
///
/// A running check pass writes many cells between two frames of the screen. The model only notes
/// which rows have changed, and tells its views once for each frame. A changed row is told as
/// changed cells, its lamp included: a change of a header would have the view lay everything out
/// anew. Until then its shape may lag behind the grid's; a cell that the grid no longer has reads
/// empty.
class GridModel final : public QAbstractTableModel, private GridObserver {
  Q_OBJECT

 public:
  explicit GridModel(MSFlexGrid& grid);

  /// Tells the views whatever has changed and wasn't told yet.
  void CatchUp();

  /// Leaves the grid alone from now on; everything reads empty.
  void Detach();

  int rowCount(const QModelIndex& parent) const override;
  int columnCount(const QModelIndex& parent) const override;
  QVariant data(const QModelIndex& index, int role) const override;

  /// Headings as texts. A lamp has its colour as decoration, and its meaning in words for screen
  /// readers and as its tip.
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 signals:
  /// The shape has been told to the views; column widths may have changed.
  void ShapeCaughtUp();
  /// A column of the grid, by its own number, has been given a width. `ShapeCaughtUp` will follow.
  void WidthGiven(int gridColumn);

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void CellChanged(std::int32_t row, std::int32_t col) override;
  void ShapeChanged() override;
  void ColWidthGiven(std::int32_t col) override { emit WidthGiven(col); }

  void NoteRows(std::int32_t first, std::int32_t last);
  void CatchUpRows(int rows);
  void CatchUpColumns(int columns);

  MSFlexGrid* grid_;
  int rows_;
  int columns_;
  QBasicTimer frame_;
  bool shapeChanged_ = false;
  std::int32_t firstChanged_;
  std::int32_t lastChanged_;
  std::int32_t firstColumnChanged_ = 0;
  Observation<GridObserver*> observation_;
};

}  // namespace kestrava
