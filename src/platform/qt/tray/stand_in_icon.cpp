#include "platform/qt/tray/stand_in_icon.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QStyle>

namespace kestrava {

namespace {

constexpr int kIconSize = 24;
constexpr int kBorder = 4;
constexpr int kDistance = 8;  ///< from the screen's edges

}  // namespace

StandInIcon::StandInIcon(const QIcon& icon)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus),
      icon_(icon) {
  setObjectName("trayStandIn");
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_AlwaysShowToolTips);
  setAccessibleName(QGuiApplication::applicationDisplayName());
  setFixedSize(kIconSize + 2 * kBorder, kIconSize + 2 * kBorder);
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &StandInIcon::FollowScreen);
  FollowScreen();
}

void StandInIcon::contextMenuEvent(QContextMenuEvent*) { emit ContextRequested(); }

void StandInIcon::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(palette().window());
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  icon_.paint(&painter, rect().adjusted(kBorder, kBorder, -kBorder, -kBorder));
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
