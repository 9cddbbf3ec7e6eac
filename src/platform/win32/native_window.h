#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/form.h"
#include "platform/twips.h"
#include "platform/win32/native_control.h"
#include "platform/win32/native_menu.h"
#include "platform/win32/native_timer.h"
#include "platform/win32/ui_font.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

/// The native window of one form. It shows the form's state and feeds the user's input back to it.
/// It stays for as long as one of its messages is under way, whoever lets go of it meanwhile.
class NativeWindow : public std::enable_shared_from_this<NativeWindow> {
 public:
  /// What the window tells of itself.
  struct Observer {
    std::function<void()> closeRequested;  ///< the close box; the window does nothing about it
    std::function<void()> shown;           ///< the form has become visible
    std::function<void()> hiding;          ///< it isn't any more; the window is about to go
    std::function<void()> hidden;          ///< the same, told by a message of its own later on
    std::function<Commands()> commands;    ///< which ones are available now
  };

  /// Builds the window, unseen. `owner` is the window that it belongs to, or nullptr. `picture` is
  /// what its pictures show; nullptr for the program's icon.
  static std::shared_ptr<NativeWindow> Build(Form& form, HWND owner, HICON picture,
                                             Observer observer);
  ~NativeWindow();
  NativeWindow(const NativeWindow&) = delete;
  NativeWindow& operator=(const NativeWindow&) = delete;

  /// The window that has this handle; nullptr for a window of another kind.
  static NativeWindow* Of(HWND handle);

  HWND Handle() const { return handle_; }
  const TwipScale& Scale() const { return scale_; }
  const NativeMenu* Menu() const { return menu_ ? &*menu_ : nullptr; }
  /// In tab order.
  const std::vector<std::unique_ptr<NativeControl>>& Controls() const { return controls_; }

  /// Takes the window off the screen and leaves the form alone from now on.
  void Detach();

  /// Whether `message` was a key that the window itself, or the system for it, has an answer to.
  bool TakeKey(MSG& message);

 private:
  NativeWindow(Form& form, HWND owner, Observer observer);

  static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> Serve(UINT message, WPARAM wParam, LPARAM lParam);

  void BuildControls(HICON picture);
  void TakeCommand(WPARAM wParam, LPARAM lParam);
  NativeControl* ControlOf(int id) const;
  /// Presses the cancel button, or the close box of a dialog that has no such button.
  void LeaveByEscape();

  /// Sizes everything by the font.
  void Arrange();
  bool Fits(const TwipScale& scale) const;
  /// Takes a larger scale where there is screen enough for what a control would gain by it.
  void GiveRoom();

  /// Mirrors the state of the form itself.
  void ShowForm();
  void MoveToPlace();
  void ShowVisibility();
  void Appear();
  /// The same for the first time. Its tables have got their columns since it was arranged.
  void AppearFirst();
  void ShowWindowState();
  /// The user has minimised the window or brought it back.
  void TakeWindowState();

  Form* form_;
  Observation<> observation_;
  Observer observer_;
  HWND handle_;
  unsigned fontFor_;  ///< dots per inch; 0 once another font is wanted
  UiFont font_;
  TwipScale scale_;
  std::optional<NativeMenu> menu_;
  std::vector<std::unique_ptr<NativeControl>> controls_;  ///< in tab order
  std::vector<std::unique_ptr<NativeTimer>> timers_;
  std::pair<int, int> place_;  ///< where the form was last put, in its twips
  bool placed_ = false;
  bool shown_ = false;
  bool everShown_ = false;
};

}  // namespace kestrava
