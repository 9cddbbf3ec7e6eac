#include "platform/qt/native_labels.h"

#include <QFont>
#include <QLabel>

#include "platform/control.h"
#include "platform/qt/text.h"

namespace kestrava {

void ShowLabel(const Label& label, QLabel& widget) {
  const LabelLook& look = label.Look();
  QFont font;
  if (*look.family != '\0') font.setFamily(ToShown(look.family));
  if (look.points > 0) font.setPointSizeF(look.points);
  font.setBold(look.bold);
  widget.setFont(font);

  const QString caption = ToShown(label.Caption());
  if (look.link) {
    widget.setTextFormat(Qt::RichText);
    widget.setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    widget.setFocusPolicy(Qt::StrongFocus);
    widget.setText(QStringLiteral("<a href=\"link\">%1</a>").arg(caption.toHtmlEscaped()));
  } else {
    widget.setTextFormat(Qt::PlainText);
    widget.setText(caption);
  }
}

}  // namespace kestrava
