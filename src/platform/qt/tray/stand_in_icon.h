#pragma once

#include <QIcon>
#include <QWidget>

namespace kestrava {

/// A small window in the corner of the screen that stands in for a tray where there is none, so
/// that a hidden window has a way back.
class StandInIcon final : public QWidget {
  Q_OBJECT

 public:
  explicit StandInIcon(const QIcon& icon);

 signals:
  /// The user has pressed the right button.
  void ContextRequested();

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void TakeCorner();
  void FollowScreen();

  QIcon icon_;
};

}  // namespace kestrava
