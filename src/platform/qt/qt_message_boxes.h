#pragma once

#include "platform/message_box.h"
#include "platform/qt/modal_waits.h"

namespace kestrava {

/// Message boxes as Qt dialogs above the window that waits.
class QtMessageBoxes final : public MessageBoxes {
 public:
  explicit QtMessageBoxes(ModalWaits& waits) : waits_(waits) {}

  void MsgBox(const std::string& text, MessageIcon icon) override;
  std::unique_ptr<OpenMsgBox> ShowMsgBox(const std::string& text, MessageIcon icon,
                                         std::function<void()> answered) override;
  YesNo AskYesNo(const std::string& text, const std::string& title) override;

 private:
  ModalWaits& waits_;
};

}  // namespace kestrava
