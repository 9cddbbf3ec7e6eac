#pragma once

#include <QIcon>
#include <QWidget>

namespace kestrava {

/// A small window in the corner of the screen that stands in for a tray where there is none, so
/// that a hidden window has a way back.
///
/// A Wayland compositor puts a window where it likes and gives it the focus. There the icon stands
/// at the end of the program's menu bar, and is a window only while that is hidden.
class StandInIcon final : public QWidget {
  Q_OBJECT

 public:
  /// `window` is the one that the icon stands for.
  StandInIcon(const QIcon& icon, const QWidget& window);

 signals:
  /// The user has pressed the right button, or a key.
  void ContextRequested();

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TakeCorner();
  void FollowScreen();
  void FollowMenuBar();

  QIcon icon_;
  QWidget* menuBar_;
};

}  // namespace kestrava
