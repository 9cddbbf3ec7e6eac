#pragma once

#include <QCheckBox>
#include <QStyledItemDelegate>

namespace kestrava {

/// A check box whose frame shows in dark colours too: the toolkit's own style draws it darker than
/// the window, which is hard to see where the window is dark itself.
class VisibleCheckBox final : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;

 protected:
  void initStyleOption(QStyleOptionButton* option) const override;
};

/// The same for the entries of a list, which also have room between their boxes.
class CheckEntryDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  /// Shows the whole text where the entry is too narrow for it.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace kestrava
