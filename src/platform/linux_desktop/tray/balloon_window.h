#pragma once

#include <QIcon>
#include <QTextDocument>
#include <QWidget>

namespace kestrava {

/// A balloon of the program's own: a small window with a picture, a title and a text.
class BalloonWindow final : public QWidget {
  Q_OBJECT

 public:
  BalloonWindow();

  /// Shows both as plain text, with the picture on their left if there is one, beside `anchor`, or
  /// in the corner of the screen where that is empty.
  void ShowText(const QString& title, const QString& body, const QIcon& picture,
                const QRect& anchor);

 signals:
  /// The user has clicked the balloon, and it has closed.
  void Clicked();

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void MoveBeside(const QRect& anchor);

  int TextLeft() const;

  QIcon picture_;
  QTextDocument document_;
};

}  // namespace kestrava
