#pragma once

#include "platform/message_box.h"
#include "platform/qt/modal_waits.h"

class QMessageBox;

namespace kestrava {

/// Message boxes as Qt dialogs above the window that waits.
class QtMessageBoxes final : public MessageBoxes {
 public:
  explicit QtMessageBoxes(ModalWaits& waits) : waits_(waits) {}

  void MsgBox(const std::string& text, MessageIcon icon) override;
  YesNo AskYesNo(const std::string& text, const std::string& title) override;

 private:
  /// Shows `text` as plain text above the buttons that `box` has, and waits for the answer or for
  /// the end of the program.
  void Ask(QMessageBox& box, const std::string& text);

  ModalWaits& waits_;
};

}  // namespace kestrava
