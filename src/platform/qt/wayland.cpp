#include "platform/qt/wayland.h"

#include <QLayout>
#include <QWindow>

namespace kestrava {

void LetMaximize(QWidget& window) {
  if (!OnWayland()) return;
  // As soon as it is asked for: by the time that the compositor answers, the window must be free.
  // And for as long as it shows: when a size of its own counts again is the compositor's to say,
  // too.
  const auto follow = [&window](Qt::WindowState state) {
    if (state != Qt::WindowMaximized) return;
    window.layout()->setSizeConstraint(QLayout::SetNoConstraint);
    window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  };
  QObject::connect(window.windowHandle(), &QWindow::windowStateChanged, &window, follow);
}

void TakeOwnSize(QWidget& window) {
  if (!OnWayland() || window.isVisible()) return;
  window.setWindowState(window.windowState() & ~Qt::WindowMaximized);
  window.layout()->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace kestrava
