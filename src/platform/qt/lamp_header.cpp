#include "platform/qt/lamp_header.h"

#include <QColor>
#include <QPainter>

namespace kestrava {

LampHeader::LampHeader(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {
  setSectionResizeMode(QHeaderView::Fixed);
  setHighlightSections(false);
  setSectionsClickable(true);
  setMinimumSectionSize(1);
}

void LampHeader::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                             const QList<int>&) {
  const int top = sectionViewportPosition(topLeft.row());
  const int end = sectionViewportPosition(bottomRight.row()) + sectionSize(bottomRight.row());
  viewport()->update(0, top, viewport()->width(), end - top);
}

void LampHeader::paintSection(QPainter* painter, const QRect& place, int section) const {
  painter->save();
  QHeaderView::paintSection(painter, place, section);
  painter->restore();
  const QVariant lamp = model()->headerData(section, Qt::Vertical, Qt::DecorationRole);
  if (!lamp.isValid()) return;

  // A border half way to the text's colour keeps a white lamp apart from a white table and a lit
  // one apart from a dark one.
  QColor border = palette().color(QPalette::ButtonText);
  border.setAlphaF(0.5F);
  const QRect cell = place.adjusted(1, 1, -2, -2);
  painter->save();
  painter->fillRect(cell, lamp.value<QColor>());
  painter->setPen(border);
  painter->drawRect(cell.adjusted(0, 0, -1, -1));
  painter->restore();
}

}  // namespace kestrava
