#pragma once

#include <string>

#include "platform/event.h"

namespace kestrava {

class Form;

enum class ControlKind { Grid, Button, Label, TextBox, CheckBox, RemoteDesktop };

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
  int tabOrder;  ///< from 0; a label's stands for the control behind it
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

class Label : public Control {
 public:
  Label(Form& form, const char* name) : Control(form, name, ControlKind::Label) {}
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

  /// One line of text in the system's 8-bit encoding.
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

}  // namespace kestrava
