#include "platform/qt/native_labels.h"

#include <QFont>
#include <QMouseEvent>

#include "platform/control.h"
#include "platform/qt/text.h"

namespace kestrava {

void NativeLabel::ShowLabel() {
  const LabelLook& look = label_.Look();
  QFont font;
  if (*look.family != '\0') font.setFamily(ToShown(look.family));
  if (look.points > 0) font.setPointSizeF(look.points);
  font.setBold(look.bold);
  setFont(font);

  const QString caption = ToShown(label_.Caption());
  if (look.link) {
    setTextFormat(Qt::RichText);
    setTextInteractionFlags(Qt::LinksAccessibleByKeyboard);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setText(QStringLiteral("<a href=\"link\">%1</a>").arg(caption.toHtmlEscaped()));
  } else {
    setTextFormat(Qt::PlainText);
    setText(caption);
  }
}

void NativeLabel::mouseReleaseEvent(QMouseEvent* event) {
  const bool inside = rect().contains(event->position().toPoint());
  if (!label_.Look().link || event->button() != Qt::LeftButton || !inside) return event->ignore();
  emit linkActivated({});
}

}  // namespace kestrava
