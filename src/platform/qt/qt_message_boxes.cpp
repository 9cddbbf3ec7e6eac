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

/// A box that the user may answer at any time.
class QtOpenMsgBox final : public OpenMsgBox {
 public:
  QtOpenMsgBox(const std::string& text, MessageIcon icon, std::function<void()> answered)
      : box_(new QMessageBox(QApplication::activeWindow())) {
    box_->setWindowTitle(QStringLiteral("Kestrava"));
    box_->setIcon(NativeIcon(icon));
    box_->setStandardButtons(QMessageBox::Ok);
    box_->setTextFormat(Qt::PlainText);
    box_->setText(ToShown(text));
    QObject::connect(box_, &QDialog::finished, box_,
                     [answered = std::move(answered)] { answered(); });
    box_->open();
  }
  ~QtOpenMsgBox() override {
    box_->disconnect();
    box_->hide();
    // Its own signal may be what has led here.
    box_->deleteLater();
  }

 private:
  QMessageBox* box_;
};

}  // namespace

std::unique_ptr<OpenMsgBox> QtMessageBoxes::ShowMsgBox(const std::string& text, MessageIcon icon,
                                                       std::function<void()> answered) {
  return std::make_unique<QtOpenMsgBox>(text, icon, std::move(answered));
}

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
