#pragma once

#include <QTableView>
#include <optional>
#include <vector>

#include "platform/qt/grid_model.h"
#include "platform/qt/lamp_header.h"
#include "platform/twips.h"

namespace kestrava {

/// Shows a grid and lets the user scroll it, choose a cell and drag its columns wider. The cell
/// that shows as chosen is the grid's `UserCell`, not its current one: it stays where it is while
/// the program works in others, moves with its row when rows above it go, and goes with its row.
class GridView final : public QTableView {
  Q_OBJECT

 public:
  GridView(MSFlexGrid& grid, QWidget* parent);

  /// Repaints only what has changed of the rows on the screen: a pass writes many others.
  void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                   const QList<int>& roles) override;

  /// Sizes the rows by the font and the columns by the grid's widths.
  void SetScale(const TwipScale& scale);

  /// Whether the columns, each wide enough for its heading and its sample, have room side by side
  /// at this scale, in a view of that width and with a scroll bar.
  bool HasRoom(const TwipScale& scale, int width);

  /// Leaves the grid alone from now on.
  void Detach();

 protected:
  void showEvent(QShowEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void rowsInserted(const QModelIndex& parent, int first, int last) override;

 private:
  void FollowShape();
  void ApplyColumnWidths();
  int WidthFor(const TwipScale& scale, int column) const;
  void FollowUserCell();
  /// The user has chosen the cell at the view's current index. @return whether it is there.
  bool ChooseCurrentIndex();
  /// Tells the program that the user wants to act on the current cell.
  void RaiseDoubleClick();
  void ClickFixedCell(int gridRow, int gridColumn);

  /// Shows the whole heading at `position` if its column is too narrow for it.
  void TipHeading(const QPoint& position, const QPoint& screenPosition);

  MSFlexGrid* grid_;
  GridModel model_;
  LampHeader* lamps_;
  TwipScale scale_;
  quint64 pressedAt_ = 0;  ///< when the latest press came, in milliseconds
  /// The widths last taken from the grid, in twips, so that a width dragged by the user stays until
  /// the program sets one; -1 for one to be taken.
  std::vector<std::int32_t> appliedWidths_;
  bool hasUserCell_ = false;  ///< the grid had a user's cell when the view last looked
};

}  // namespace kestrava
