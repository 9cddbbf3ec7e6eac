#include "platform/win32/win32_prompt_boxes.h"

#include "platform/win32/box_form.h"
#include "platform/win32/wide_text.h"

namespace kestrava {

std::string Win32PromptBoxes::InputBox(const std::string& prompt, const std::string& title,
                                       const std::string& text) {
  if (windows_.HasEnded()) return {};
  BoxForm box({.title = title,
               .text = prompt,
               .textField = true,
               .firstButton = "OK",
               .secondButton = "Cancel"});
  box.Field()->SetText(text);
  const LoadedForm loaded(windows_, box);
  windows_.ShowModal(box);
  if (!box.Confirmed()) return {};
  // A text that reads as before keeps its very bytes.
  return box.Field()->Text() == ToBytes(ToShownLine(text)) ? text : box.Field()->Text();
}

}  // namespace kestrava
