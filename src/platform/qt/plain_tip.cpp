#include "platform/qt/plain_tip.h"

#include <QToolTip>

namespace kestrava {

namespace {

/// The toolkit breaks lines between words alone, and a name may be one long word.
constexpr int kLongestPiece = 60;
constexpr QChar kZeroWidthSpace(0x200B);

QString WithPlacesToBreak(const QString& text) {
  QString pieces;
  int length = 0;
  for (const QChar letter : text) {
    length = letter.isSpace() ? 0 : length + 1;
    if (length > kLongestPiece && !letter.isLowSurrogate() && !letter.isMark()) {
      pieces += kZeroWidthSpace;
      length = 1;
    }
    pieces += letter;
  }
  return pieces;
}

}  // namespace

void ShowPlainTip(const QString& text, const QPoint& screenPosition, QWidget* widget,
                  const QRect& place) {
  const QString tip = QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>")
                          .arg(WithPlacesToBreak(text).toHtmlEscaped());
  QToolTip::showText(screenPosition, tip, widget, place);
}

}  // namespace kestrava
