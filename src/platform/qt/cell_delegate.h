#pragma once

#include <QStyledItemDelegate>

namespace kestrava {

/// Draws a cell as one line of plain text, cut at the right where the cell is too narrow, and tells
/// the whole of a cut text in a tip. Much faster than the toolkit's own, which lays every text out
/// as a paragraph: a running pass repaints the table all the time.
class CellDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  /// The width of a column in which a cell of `view` shows the whole of this text.
  static int WidthFor(const QString& text, const QAbstractItemView& view);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
};

}  // namespace kestrava
