#include "platform/qt/check_box_look.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QStyleOptionButton>

#include "platform/qt/plain_tip.h"

namespace kestrava {

namespace {

constexpr QSize kRoomBetween(0, 4);

/// In a dark palette, gives the frame a colour between those of window and text. The style takes
/// the frame's colour from the window's.
void LightenFrame(QPalette& palette) {
  const QColor window = palette.color(QPalette::Window);
  const QColor text = palette.color(QPalette::WindowText);
  if (text.lightness() <= window.lightness()) return;
  palette.setColor(QPalette::Window,
                   QColor((window.red() + text.red()) / 2, (window.green() + text.green()) / 2,
                          (window.blue() + text.blue()) / 2));
}

}  // namespace

void VisibleCheckBox::initStyleOption(QStyleOptionButton* option) const {
  QCheckBox::initStyleOption(option);
  LightenFrame(option->palette);
}

QSize CheckEntryDelegate::sizeHint(const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
  return QStyledItemDelegate::sizeHint(option, index) + kRoomBetween;
}

bool CheckEntryDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                   const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid() ||
      sizeHint(option, index).width() <= option.rect.width()) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  ShowPlainTip(index.data().toString(), event->globalPos(), view->viewport(), option.rect);
  return true;
}

void CheckEntryDelegate::initStyleOption(QStyleOptionViewItem* option,
                                         const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  LightenFrame(option->palette);
}

}  // namespace kestrava
