#pragma once

#include <string>

namespace kestrava {

enum class MessageIcon { None, Stop, Exclamation };

/// A message box with an OK button.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  /// Shows `text`, taken as plain text whatever it holds, and returns when the user has answered or
  /// the program ends. Events are delivered meanwhile. The title is "Kestrava".
  virtual void MsgBox(const std::string& text, MessageIcon icon) = 0;
};

}  // namespace kestrava
