#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/event.h"

namespace kestrava {

class Form;

enum class ControlKind {
  Grid,
  Button,
  Label,
  TextBox,
  CheckBox,
  CheckList,
  Picture,
  RemoteDesktop,
};

/// One line of a window's table of controls. Places and sizes are in twips (1/1440 inch) from the
/// top left corner of the window's inner area.
struct ControlSpec {
  const char* name;
  ControlKind kind;
  const char* caption;  ///< UTF-8, "&" in front of the access key; empty for none
  int left;
  int top;
  int width;
  int height;
  int tabOrder;  ///< from 0; a label's access key leads to the control after it
};

/// What any control shows. The desktop mirrors it into a native widget and observes it.
class Control : public Observable {
 public:
  /// Takes the line called `name` from the table of `form` and joins the form.
  /// @throws RuntimeError (5) if the table has no such line of that kind.
  Control(Form& form, const char* name, ControlKind kind);
  virtual ~Control() = default;

  const ControlSpec& Spec() const { return spec_; }

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { Change(enabled_, enabled); }

  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { Change(visible_, visible); }

 private:
  const ControlSpec& spec_;
  bool enabled_ = true;
  bool visible_ = true;
};

/// How a label looks that doesn't look like all others.
struct LabelLook {
  const char* family = "";  ///< font family; empty for the desktop's own
  double points = 0;        ///< font size in points; 0 for the desktop's own
  bool bold = false;
  bool link = false;  ///< underlined and in the colour of links; a click, or Enter, does something

  friend bool operator==(const LabelLook&, const LabelLook&) = default;
};

class Label : public Control {
 public:
  Label(Form& form, const char* name)
      : Control(form, name, ControlKind::Label), caption_(Spec().caption) {}

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Change(caption_, std::move(caption)); }

  const LabelLook& Look() const { return look_; }
  void SetLook(const LabelLook& look) { Change(look_, look); }

  Event Click;

 private:
  std::string caption_;
  LabelLook look_;
};

/// The program's icon.
class Picture : public Control {
 public:
  Picture(Form& form, const char* name) : Control(form, name, ControlKind::Picture) {}
};

class Button : public Control {
 public:
  Button(Form& form, const char* name) : Control(form, name, ControlKind::Button) {}

  /// Runs the click handler, exactly as a user's click does, and returns when it has ended. A
  /// disabled button can't be clicked, but it can be pressed from code.
  void Press() const { Click.Raise(); }

  Event Click;
};

class TextBox : public Control {
 public:
  TextBox(Form& form, const char* name) : Control(form, name, ControlKind::TextBox) {}

  /// One line, in bytes as the user typed them (UTF-8) or the program set them.
  const std::string& Text() const { return text_; }
  void SetText(std::string text) { Change(text_, std::move(text)); }

 private:
  std::string text_;
};

class CheckBox : public Control {
 public:
  CheckBox(Form& form, const char* name) : Control(form, name, ControlKind::CheckBox) {}

  bool Checked() const { return checked_; }
  void SetChecked(bool checked) { Change(checked_, checked); }

 private:
  bool checked_ = false;
};

/// A list of lines with a check box on each. Entries are counted from 0.
class CheckList : public Control {
 public:
  CheckList(Form& form, const char* name) : Control(form, name, ControlKind::CheckList) {}

  std::int32_t ListCount() const { return static_cast<std::int32_t>(entries_.size()); }
  void Clear();
  /// Adds an unmarked entry at the end.
  void AddItem(std::string text);

  /// @throws std::out_of_range outside the list.
  const std::string& List(std::int32_t entry) const;
  bool Selected(std::int32_t entry) const;
  void SetSelected(std::int32_t entry, bool selected);

 private:
  struct Entry {
    std::string text;
    bool selected = false;
  };

  std::vector<Entry> entries_;
};

}  // namespace kestrava
