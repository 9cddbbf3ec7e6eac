#pragma once

#include "platform/message_box.h"
#include "platform/qt/qt_event_loop.h"

class QMessageBox;

namespace kestrava {

/// Message boxes as Qt dialogs above the window that is in use.
class QtMessageBoxes final : public MessageBoxes {
 public:
  explicit QtMessageBoxes(QtEventLoop& eventLoop) : eventLoop_(eventLoop) {}

  void MsgBox(const std::string& text, MessageIcon icon) override;
  std::unique_ptr<OpenMsgBox> ShowMsgBox(const std::string& text, MessageIcon icon,
                                         std::function<void()> answered) override;
  YesNo AskYesNo(const std::string& text, const std::string& title) override;

 private:
  /// Shows `text` as plain text above the buttons that `box` has, and waits for the answer or for
  /// the end of the program.
  void Ask(QMessageBox& box, const std::string& text);

  QtEventLoop& eventLoop_;
};

}  // namespace kestrava
