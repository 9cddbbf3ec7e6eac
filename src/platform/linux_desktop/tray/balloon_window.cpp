#include "platform/linux_desktop/tray/balloon_window.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QTextCursor>
#include <QToolTip>
#include <algorithm>

namespace kestrava {

namespace {

constexpr int kMargin = 10;
constexpr int kDistance = 8;  ///< from the icon and from the screen's edges
constexpr int kWidthInLetters = 45;
constexpr QSize kPictureSize(32, 32);

}  // namespace

BalloonWindow::BalloonWindow() : QWidget(nullptr, Qt::ToolTip | Qt::WindowStaysOnTopHint) {
  setObjectName("balloon");
  setAttribute(Qt::WA_ShowWithoutActivating);
  setPalette(QToolTip::palette());
  document_.setDocumentMargin(kMargin);
  document_.setDefaultTextOption([] {
    QTextOption option;
    // A name may be one long word.
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
  }());
}

void BalloonWindow::ShowText(const QString& title, const QString& body, const QIcon& picture,
                             const QRect& anchor) {
  picture_ = picture;
  setAccessibleName(title);
  setAccessibleDescription(body);
  document_.clear();
  document_.setDefaultFont(font());
  QTextCharFormat bold;
  bold.setFontWeight(QFont::Bold);
  QTextCursor cursor(&document_);
  cursor.insertText(title, bold);
  cursor.insertBlock();
  cursor.insertText(body, QTextCharFormat());
  document_.setTextWidth(fontMetrics().averageCharWidth() * kWidthInLetters);
  const QSize text = document_.size().toSize();
  resize(TextLeft() + text.width(), std::max(text.height(), kPictureSize.height() + 2 * kMargin));
  MoveBeside(anchor);
  show();
  raise();
  update();
}

void BalloonWindow::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !rect().contains(event->position().toPoint())) return;
  hide();
  emit Clicked();
}

void BalloonWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(palette().toolTipBase());
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  if (!picture_.isNull()) picture_.paint(&painter, {QPoint(kMargin, kMargin), kPictureSize});
  painter.translate(TextLeft(), 0);
  QAbstractTextDocumentLayout::PaintContext context;
  context.palette = palette();
  context.palette.setColor(QPalette::Text, palette().color(QPalette::ToolTipText));
  document_.documentLayout()->draw(&painter, context);
}

int BalloonWindow::TextLeft() const {
  return picture_.isNull() ? 0 : kMargin + kPictureSize.width();
}

void BalloonWindow::MoveBeside(const QRect& anchor) {
  const QScreen* screen = anchor.isEmpty() ? nullptr : QGuiApplication::screenAt(anchor.center());
  if (!screen) screen = QGuiApplication::primaryScreen();
  if (!screen) return;
  const QRect room =
      screen->availableGeometry().adjusted(kDistance, kDistance, -kDistance, -kDistance);
  QPoint place(room.right() - width(), room.bottom() - height());
  if (!anchor.isEmpty()) {
    const bool iconIsLow = anchor.center().y() > room.center().y();
    place = QPoint(anchor.center().x() - width() / 2,
                   iconIsLow ? anchor.top() - kDistance - height() : anchor.bottom() + kDistance);
  }
  move(std::clamp(place.x(), room.left(), std::max(room.left(), room.right() - width())),
       std::clamp(place.y(), room.top(), std::max(room.top(), room.bottom() - height())));
}

}  // namespace kestrava
