#include "platform/win32/win32_prompt_boxes.h"

#include "platform/win32/box_form.h"

namespace kestrava {

std::string Win32PromptBoxes::InputBox(const std::string& prompt, const std::string& title,
                                       const std::string& text) {
  if (windows_.HasEnded()) return {};
  BoxForm box({.title = title,
               .text = prompt,
               .textField = true,
               .firstButton = "OK",
               .secondButton = "Cancel"});
  // A text that nobody edits keeps its very bytes.
  box.Field()->SetText(text);
  const LoadedForm loaded(windows_, box);
  windows_.ShowModal(box);
  return box.Confirmed() ? box.Field()->Text() : std::string();
}

}  // namespace kestrava
