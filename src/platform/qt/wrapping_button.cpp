#include "platform/qt/wrapping_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

namespace kestrava {

namespace {

constexpr int kCaptionFlags = Qt::AlignCenter | Qt::TextWordWrap | Qt::TextShowMnemonic;

/// Pixels kept free on either side of the caption, where a style keeps none itself.
constexpr int kSideMargin = 3;

/// Taller than any caption.
constexpr int kUnlimited = 1 << 20;

}  // namespace

QSize WrappingButton::minimumSizeHint() const {
  int longest = 0;
  for (const QString& word : text().split(' ')) {
    const QRect bounds = fontMetrics().boundingRect(QRect(), Qt::TextShowMnemonic, word);
    longest = std::max(longest, bounds.width() + 1);
  }
  const int width = longest + Padding().width();
  return {width, heightForWidth(width)};
}

int WrappingButton::heightForWidth(int width) const {
  const QRect room(0, 0, width - Padding().width(), kUnlimited);
  return fontMetrics().boundingRect(room, kCaptionFlags, text()).height() + Padding().height();
}

void WrappingButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  painter.drawControl(QStyle::CE_PushButtonBevel, option);

  QRect captionPlace = style()
                           ->subElementRect(QStyle::SE_PushButtonContents, &option, this)
                           .adjusted(kSideMargin, 0, -kSideMargin, 0);
  if (option.state & (QStyle::State_Sunken | QStyle::State_On)) {
    captionPlace.translate(style()->pixelMetric(QStyle::PM_ButtonShiftHorizontal, &option, this),
                           style()->pixelMetric(QStyle::PM_ButtonShiftVertical, &option, this));
  }
  const bool showsAccessKey = style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this) != 0;
  const int accessKeyFlag = showsAccessKey ? 0 : Qt::TextHideMnemonic;
  painter.drawItemText(captionPlace, kCaptionFlags | accessKeyFlag, option.palette, isEnabled(),
                       option.text, QPalette::ButtonText);

  if (option.state & QStyle::State_HasFocus) {
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(option);
    focus.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &option, this);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
  }
}

QSize WrappingButton::Padding() const {
  QStyleOptionButton option;
  initStyleOption(&option);
  option.rect = QRect(0, 0, 100, 100);
  const QRect contents = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
  return option.rect.size() - contents.size() + QSize(2 * kSideMargin, 0);
}

}  // namespace kestrava
