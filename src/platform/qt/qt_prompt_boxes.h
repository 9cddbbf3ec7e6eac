#pragma once

#include "platform/prompt_box.h"
#include "platform/qt/qt_event_loop.h"

namespace kestrava {

class QtPromptBoxes final : public PromptBoxes {
 public:
  explicit QtPromptBoxes(QtEventLoop& eventLoop) : eventLoop_(eventLoop) {}

  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& text) override;

 private:
  QtEventLoop& eventLoop_;
};

}  // namespace kestrava
