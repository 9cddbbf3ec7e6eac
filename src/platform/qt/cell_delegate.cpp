#include "platform/qt/cell_delegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "platform/qt/plain_tip.h"

namespace kestrava {

namespace {

/// What is kept free on either side of a text: the style's own margin for item texts.
int Margin(const QWidget& view, const QStyleOption* option = nullptr) {
  return view.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, option, &view) + 1;
}

QRect TextPlace(const QStyleOptionViewItem& option) {
  const int margin = Margin(*option.widget, &option);
  return option.rect.adjusted(margin, 0, -margin, 0);
}

QPalette::ColorGroup ColorGroup(QStyle::State state) {
  if (!(state & QStyle::State_Enabled)) return QPalette::Disabled;
  return state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
}

}  // namespace

int CellDelegate::WidthFor(const QString& text, const QAbstractItemView& view) {
  constexpr int kGridLine = 1;
  return view.fontMetrics().horizontalAdvance(text) + 2 * Margin(view) + kGridLine;
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  const QStyle* style = option.widget->style();
  style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
  if (option.state & QStyle::State_HasFocus) {
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(option);
    style->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, option.widget);
  }

  const bool selected = option.state & QStyle::State_Selected;
  painter->setPen(option.palette.color(ColorGroup(option.state),
                                       selected ? QPalette::HighlightedText : QPalette::Text));
  const QRect place = TextPlace(option);
  QString text = index.data().toString();
  if (option.fontMetrics.horizontalAdvance(text) > place.width()) {
    text = option.fontMetrics.elidedText(text, Qt::ElideRight, place.width());
  }
  // A date in Arabic, say, has its numbers in the order that its own direction gives them.
  painter->setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  constexpr int kPlacing = Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter;
  painter->drawText(place, kPlacing | Qt::TextSingleLine, text);
}

bool CellDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                             const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  const QString text = index.data().toString();
  if (text.isEmpty() || option.fontMetrics.horizontalAdvance(text) <= TextPlace(option).width()) {
    QToolTip::hideText();
  } else {
    ShowPlainTip(text, event->globalPos(), view->viewport(), option.rect);
  }
  return true;
}

}  // namespace kestrava
