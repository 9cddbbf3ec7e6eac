#pragma once

#include <QLabel>

namespace kestrava {

class Label;

/// A label of which the whole place takes the click, if it is a link.
class NativeLabel final : public QLabel {
 public:
  NativeLabel(Label& label, QWidget* parent) : QLabel(parent), label_(label) {}

  /// Shows the label's caption in its look. A link takes the focus and the pointer of links.
  void ShowLabel();

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  Label& label_;
};

}  // namespace kestrava
