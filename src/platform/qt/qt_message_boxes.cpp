#include "platform/qt/qt_message_boxes.h"

#include <QMessageBox>

#include "platform/program_title.h"
#include "platform/qt/text.h"
#include "platform/qt/wayland.h"

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

void Fill(QMessageBox& box, const std::string& text, MessageIcon icon) {
  box.setWindowTitle(kProgramTitle);
  box.setIcon(NativeIcon(icon));
  box.setStandardButtons(QMessageBox::Ok);
  box.setTextFormat(Qt::PlainText);
  box.setText(ToShown(text));
}

/// A message that nobody on the stack waits for.
class QtOpenMsgBox final : public OpenMsgBox {
 public:
  QtOpenMsgBox(ModalWaits& waits, const std::string& text, MessageIcon icon,
               std::function<void()> answered)
      : box_(new QMessageBox(waits.Owner())), wait_(waits, *box_) {
    Fill(*box_, text, icon);
    QObject::connect(box_, &QDialog::finished, box_,
                     [answered = std::move(answered)] { answered(); });
    box_->show();
    LetMaximize(*box_);
  }
  ~QtOpenMsgBox() override {
    box_->disconnect();
    box_->hide();
    // Its own signal may be what has led here.
    box_->deleteLater();
  }

 private:
  QMessageBox* box_;
  ModalWaits::Wait wait_;
};

}  // namespace

std::unique_ptr<OpenMsgBox> QtMessageBoxes::ShowMsgBox(const std::string& text, MessageIcon icon,
                                                       std::function<void()> answered) {
  return std::make_unique<QtOpenMsgBox>(waits_, text, icon, std::move(answered));
}

void QtMessageBoxes::MsgBox(const std::string& text, MessageIcon icon) {
  QMessageBox box(waits_.Owner());
  Fill(box, text, icon);
  waits_.Ask(box);
}

YesNo QtMessageBoxes::AskYesNo(const std::string& text, const std::string& title) {
  QMessageBox box(waits_.Owner());
  box.setWindowTitle(ToShown(title));
  box.setIcon(QMessageBox::Question);
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setEscapeButton(QMessageBox::No);
  box.setTextFormat(Qt::PlainText);
  box.setText(ToShown(text));
  waits_.Ask(box);
  return box.standardButton(box.clickedButton()) == QMessageBox::Yes ? YesNo::Yes : YesNo::No;
}

}  // namespace kestrava
