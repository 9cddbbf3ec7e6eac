#pragma once

#include "platform/message_box.h"
#include "platform/win32/win32_window_system.h"

namespace kestrava {

/// Message boxes as windows of the program's own: the system's wait on the stack of whoever shows
/// them.
class Win32MessageBoxes final : public MessageBoxes {
 public:
  explicit Win32MessageBoxes(Win32WindowSystem& windows) : windows_(windows) {}

  void MsgBox(const std::string& text, MessageIcon icon) override;
  std::unique_ptr<OpenMsgBox> ShowMsgBox(const std::string& text, MessageIcon icon,
                                         std::function<void()> answered) override;
  YesNo AskYesNo(const std::string& text, const std::string& title) override;

 private:
  Win32WindowSystem& windows_;
};

}  // namespace kestrava
