#include "platform/qt/window_frame.h"

#include <QDialog>
#include <QLayout>
#include <QMainWindow>
#include <QPixmap>
#include <QVBoxLayout>
#include <QWindow>

namespace kestrava {

namespace {

constexpr Qt::WindowFlags kTitleBar = Qt::CustomizeWindowHint | Qt::WindowTitleHint;
constexpr Qt::WindowFlags kCloseBox = Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

}  // namespace

QWidget* MakeWindow(FormStyle style, QWidget* owner, QWidget* area) {
  if (style == FormStyle::MainWindow) {
    auto* window =
        new QMainWindow(owner, Qt::Window | kTitleBar | kCloseBox | Qt::WindowMinimizeButtonHint);
    window->setCentralWidget(area);
    return window;
  }
  Qt::WindowFlags flags = Qt::Dialog | kTitleBar;
  if (style != FormStyle::ToolWindowWithoutClose) flags |= kCloseBox;
  auto* window = new QDialog(owner, flags);
  // Only the main window has an icon. Without any the program's own would show.
  QPixmap nothing(1, 1);
  nothing.fill(Qt::transparent);
  window->setWindowIcon(nothing);
  auto* layout = new QVBoxLayout(window);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(area);
  return window;
}

QMargins FrameOf(const QWidget& window) {
  return window.windowHandle() ? window.windowHandle()->frameMargins() : QMargins();
}

}  // namespace kestrava
