#pragma once

#include "platform/event.h"

namespace kestrava {

class Form;

enum class MenuKind {
  Menu,       ///< a top menu; the lines that follow it are its entries
  Entry,      ///< a command, not available while a dialog waits for its answer
  FreeEntry,  ///< a command that is available at any time
  Separator,  ///< a line between two groups of entries
};

/// One line of a window's menu table, in the order in which the menu bar shows them.
struct MenuSpec {
  const char* name;
  MenuKind kind;
  const char* caption;   ///< UTF-8, "&" in front of the access key; empty for a separator
  const char* shortcut;  ///< a key such as "F1", or empty
  bool visible;          ///< shown when the window is loaded
};

/// The state of one line of the menu table.
class MenuEntry : public Observable {
 public:
  /// Takes the line called `name` from the menu table of `form` and joins the form.
  /// @throws RuntimeError (5) if the table has no such line.
  MenuEntry(Form& form, const char* name);

  const MenuSpec& Spec() const { return spec_; }

  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { Change(visible_, visible); }

  bool Checked() const { return checked_; }
  void SetChecked(bool checked) { Change(checked_, checked); }

  Event Click;

 private:
  const MenuSpec& spec_;
  bool visible_;
  bool checked_ = false;
};

}  // namespace kestrava
