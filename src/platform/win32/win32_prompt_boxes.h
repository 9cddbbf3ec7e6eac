#pragma once

#include "platform/prompt_box.h"
#include "platform/win32/win32_window_system.h"

namespace kestrava {

class Win32PromptBoxes final : public PromptBoxes {
 public:
  explicit Win32PromptBoxes(Win32WindowSystem& windows) : windows_(windows) {}

  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& text) override;

 private:
  Win32WindowSystem& windows_;
};

}  // namespace kestrava
