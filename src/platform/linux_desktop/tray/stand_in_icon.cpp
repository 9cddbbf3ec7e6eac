#include "platform/linux_desktop/tray/stand_in_icon.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include "platform/qt/wayland.h"

namespace kestrava {

namespace {

constexpr Qt::WindowFlags kAsWindow =
    Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus;

constexpr int kIconSize = 24;
constexpr int kBorder = 4;
constexpr int kWindowSize = kIconSize + 2 * kBorder;
constexpr int kDistance = 8;  ///< from the screen's edges

}  // namespace

StandInIcon::StandInIcon(const QIcon& icon, const QWidget& window)
    : icon_(icon), menuBar_(window.layout()->menuBar()) {
  setObjectName("trayStandIn");
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_AlwaysShowToolTips);
  setAccessibleName(QGuiApplication::applicationDisplayName());
  if (OnWayland()) {
    setWindowTitle(QGuiApplication::applicationDisplayName());
    menuBar_->installEventFilter(this);
    FollowMenuBar();
    return;
  }
  setWindowFlags(kAsWindow);
  setFixedSize(kWindowSize, kWindowSize);
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &StandInIcon::FollowScreen);
  FollowScreen();
  show();
}

void StandInIcon::contextMenuEvent(QContextMenuEvent*) { emit ContextRequested(); }

void StandInIcon::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Space) return event->ignore();
  emit ContextRequested();
}

void StandInIcon::mousePressEvent(QMouseEvent* event) {
  // Wherever the window is, it may be in the way.
  if (isWindow() && event->button() == Qt::LeftButton) windowHandle()->startSystemMove();
}

void StandInIcon::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (!isWindow()) return icon_.paint(&painter, rect());
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(palette().window());
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  icon_.paint(&painter, rect().adjusted(kBorder, kBorder, -kBorder, -kBorder));
}

bool StandInIcon::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show || event->type() == QEvent::Hide ||
      event->type() == QEvent::Resize) {
    QMetaObject::invokeMethod(this, &StandInIcon::FollowMenuBar, Qt::QueuedConnection);
  }
  return QWidget::eventFilter(watched, event);
}

void StandInIcon::FollowMenuBar() {
  if (!menuBar_->isVisible()) {
    setParent(nullptr, kAsWindow);
    setFixedSize(kWindowSize, kWindowSize);
  } else {
    const int height = menuBar_->height();
    setParent(menuBar_);
    setFixedSize(height, height);
    move(menuBar_->width() - height, 0);
  }
  show();
}

void StandInIcon::TakeCorner() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (!screen) return;
  const QRect room = screen->availableGeometry().adjusted(0, 0, -kDistance, -kDistance);
  move(room.right() - width(), room.bottom() - height());
}

void StandInIcon::FollowScreen() {
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    connect(screen, &QScreen::availableGeometryChanged, this, &StandInIcon::TakeCorner,
            Qt::UniqueConnection);
  }
  TakeCorner();
}

}  // namespace kestrava
