#pragma once

#include "platform/prompt_box.h"
#include "platform/qt/modal_waits.h"

namespace kestrava {

class QtPromptBoxes final : public PromptBoxes {
 public:
  explicit QtPromptBoxes(ModalWaits& waits) : waits_(waits) {}

  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& text) override;

 private:
  ModalWaits& waits_;
};

}  // namespace kestrava
