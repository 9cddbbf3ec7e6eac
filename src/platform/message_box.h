#pragma once

#include <string>

namespace kestrava {

enum class MessageIcon { None, Stop, Exclamation };

enum class YesNo { Yes, No };

/// Boxes that tell or ask one thing. The text is plain text whatever it holds. Each call returns
/// when the user has answered or the program ends; events are delivered meanwhile.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  /// A message with an OK button under the title "Kestrava".
  virtual void MsgBox(const std::string& text, MessageIcon icon) = 0;

  /// A question with the buttons Yes and No and the question mark icon under a title of its own.
  /// Closing the box, or the end of the program, is a No.
  virtual YesNo AskYesNo(const std::string& text, const std::string& title) = 0;
};

}  // namespace kestrava
