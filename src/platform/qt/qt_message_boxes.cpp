#include "platform/qt/qt_message_boxes.h"

#include <QMessageBox>

#include "platform/qt/text.h"

namespace kestrava {

namespace {

QMessageBox::Icon NativeIcon(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Stop:
      return QMessageBox::Critical;
    case MessageIcon::Exclamation:
      return QMessageBox::Warning;
    case MessageIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

void QtMessageBoxes::MsgBox(const std::string& text, MessageIcon icon) {
  QMessageBox box(waits_.Owner());
  box.setWindowTitle(QStringLiteral("Kestrava"));
  box.setIcon(NativeIcon(icon));
  box.setStandardButtons(QMessageBox::Ok);
  Ask(box, text);
}

YesNo QtMessageBoxes::AskYesNo(const std::string& text, const std::string& title) {
  QMessageBox box(waits_.Owner());
  box.setWindowTitle(ToShown(title));
  box.setIcon(QMessageBox::Question);
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setEscapeButton(QMessageBox::No);
  Ask(box, text);
  return box.standardButton(box.clickedButton()) == QMessageBox::Yes ? YesNo::Yes : YesNo::No;
}

void QtMessageBoxes::Ask(QMessageBox& box, const std::string& text) {
  box.setTextFormat(Qt::PlainText);
  box.setText(ToShown(text));
  waits_.Ask(box);
}

}  // namespace kestrava
