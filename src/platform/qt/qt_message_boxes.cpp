#include "platform/qt/qt_message_boxes.h"

#include <QApplication>
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
  QMessageBox box(QApplication::activeWindow());
  box.setWindowTitle(QStringLiteral("Kestrava"));
  box.setIcon(NativeIcon(icon));
  box.setStandardButtons(QMessageBox::Ok);
  Ask(box, text);
}

YesNo QtMessageBoxes::AskYesNo(const std::string& text, const std::string& title) {
  QMessageBox box(QApplication::activeWindow());
  box.setWindowTitle(ToShown(title));
  box.setIcon(QMessageBox::Question);
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setEscapeButton(QMessageBox::No);
  Ask(box, text);
  return box.standardButton(box.clickedButton()) == QMessageBox::Yes ? YesNo::Yes : YesNo::No;
}

void QtMessageBoxes::Ask(QMessageBox& box, const std::string& text) {
  if (eventLoop_.HasEnded()) return;
  box.setTextFormat(Qt::PlainText);
  box.setText(ToShown(text));
  QObject::connect(&eventLoop_, &QtEventLoop::Ended, &box, &QDialog::reject);
  box.exec();
}

}  // namespace kestrava
