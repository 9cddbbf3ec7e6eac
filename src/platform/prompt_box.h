#pragma once

#include <string>

namespace kestrava {

/// A box that asks for one line of text.
class PromptBoxes {
 public:
  virtual ~PromptBoxes() = default;

  /// Shows `prompt` above a text field that holds `text`, with OK and Cancel. Events are delivered
  /// meanwhile.
  /// @return the text of the field on OK; the empty text on Cancel, on closing the box, and at the
  ///   end of the program.
  virtual std::string InputBox(const std::string& prompt, const std::string& title,
                               const std::string& text) = 0;
};

}  // namespace kestrava
