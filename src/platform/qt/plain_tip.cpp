#include "platform/qt/plain_tip.h"

#include <QToolTip>

namespace kestrava {

void ShowPlainTip(const QString& text, const QPoint& screenPosition, QWidget* widget,
                  const QRect& place) {
  const QString tip =
      QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(text.toHtmlEscaped());
  QToolTip::showText(screenPosition, tip, widget, place);
}

}  // namespace kestrava
