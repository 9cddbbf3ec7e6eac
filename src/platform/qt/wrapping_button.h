#pragma once

#include <QPushButton>

namespace kestrava {

/// A push button that breaks its caption into lines between words.
class WrappingButton : public QPushButton {
 public:
  explicit WrappingButton(QWidget* parent) : QPushButton(parent) {}

  /// Room for the longest word, and the height that the lines take at that width.
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// What the button's frame and padding take away from the caption.
  QSize Padding() const;
};

}  // namespace kestrava
