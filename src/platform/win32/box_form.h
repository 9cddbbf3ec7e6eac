#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/form.h"
#include "platform/win32/ui_font.h"

namespace kestrava {

/// What a box is about. The texts are in the program's bytes.
struct BoxContent {
  std::string title;
  std::string text;
  bool picture = false;    ///< stands at the left of the text
  bool textField = false;  ///< stands below the text
  const char* firstButton = "";
  const char* secondButton = "";  ///< empty for none
};

/// The tables of a box, which are made for its text.
class BoxTables {
 protected:
  explicit BoxTables(BoxContent content);

  BoxContent content_;
  std::vector<ControlSpec> controls_;
  FormSpec boxSpec_;
};

/// A small window that tells or asks one thing. Enter presses its first button, and Esc its last
/// one.
class BoxForm final : private BoxTables, public Form {
 public:
  explicit BoxForm(BoxContent content);

  /// Whether the first button has closed the box.
  bool Confirmed() const { return confirmed_; }
  /// What the text field holds; a box without one has none.
  TextBox* Field() { return field_ ? &*field_ : nullptr; }

 private:
  std::optional<Picture> picture_;
  Label text_;
  std::optional<TextBox> field_;
  std::vector<std::unique_ptr<Button>> buttons_;
  bool confirmed_ = false;
};

}  // namespace kestrava
