#pragma once

#include "platform/form.h"

namespace kestrava {

/// Width and height in twips.
struct TwipSize {
  int width;
  int height;
};

/// The windows of the desktop. No call fails for a form whose tables are whole: a desktop that
/// can't make a window ends the program before `frmMain` exists.
class WindowSystem {
 public:
  virtual ~WindowSystem() = default;

  /// Makes the native window of `form`, unseen, and then raises `form.Load`. The form must outlive
  /// its native window.
  /// @throws RuntimeError (5) if a line of the form's tables has no member.
  virtual void Load(Form& form) = 0;

  /// Shows a loaded window and returns at once.
  virtual void Show(Form& form) = 0;

  /// Shows a loaded window, lets no window below it take input, and returns when the form's
  /// `Visible` has become false: by the form's own code, by the close box, or by the end of the
  /// program. Events are delivered meanwhile. The desktop may take the window off the screen with
  /// the main window, and bring it back; that is no end.
  virtual void ShowModal(Form& form) = 0;

  /// Raises `form.Unload`, then takes the native window away. The form's own state stays readable.
  /// Unloading the main window ends the program: every modal wait returns. A form that isn't loaded
  /// is left alone.
  virtual void Unload(Form& form) = 0;

  /// The screen that `form` is on, and the outer size of the window, in twips of that form.
  virtual TwipSize ScreenSize(const Form& form) const = 0;
  virtual TwipSize OuterSize(const Form& form) const = 0;
};

/// A dialog that is loaded for as long as this lives, however its command ends.
class LoadedForm {
 public:
  LoadedForm(WindowSystem& windows, Form& form) : windows_(windows), form_(form) {
    windows_.Load(form_);
  }
  ~LoadedForm() { windows_.Unload(form_); }
  LoadedForm(const LoadedForm&) = delete;
  LoadedForm& operator=(const LoadedForm&) = delete;

 private:
  WindowSystem& windows_;
  Form& form_;
};

}  // namespace kestrava
