#pragma once

#include <memory>
#include <string>

#include "platform/control.h"
#include "platform/twips.h"
#include "platform/win32/ui_font.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

/// The native control of one control of a form. It shows the control's state and feeds the user's
/// input back to it.
class NativeControl {
 public:
  /// What the system is asked for when it makes a control.
  struct Make {
    const wchar_t* windowClass;
    DWORD style;
    DWORD extendedStyle = 0;
    std::wstring text = {};
  };

  /// Makes the control in `window`, which destroys it with itself. `id` is its number there.
  NativeControl(Control& control, HWND window, int id, const Make& make);
  virtual ~NativeControl() = default;
  NativeControl(const NativeControl&) = delete;
  NativeControl& operator=(const NativeControl&) = delete;

  HWND Handle() const { return handle_; }
  const ControlSpec& Spec() const { return spec_; }

  /// Shows the control's state from now on, after each change.
  void Follow();
  /// Leaves the control alone from now on.
  virtual void Detach();

  /// Takes the font and the scale of the window, before it is placed.
  virtual void SetScale(const TwipScale& scale, unsigned dotsPerInch, const UiFont& font);
  /// Whether all of it can be seen in that room.
  virtual bool FitsInto(PixelSize) const { return true; }
  /// Whether there is room for what would be good to see, too, at that scale.
  virtual bool HasRoom(const TwipScale&) const { return true; }

  /// The control tells its window of something: a code of WM_COMMAND, or a record of WM_NOTIFY.
  virtual void TakeCommand(WORD) {}
  virtual LRESULT TakeNotification(NMHDR&) { return 0; }

 protected:
  /// nullptr once the control is left alone.
  template <typename Kind>
  Kind* As() const {
    return static_cast<Kind*>(control_);
  }

  /// Shows what is the kind's own.
  virtual void Show() {}

  const UiFont& Font() const { return *font_; }
  void SetText(const std::wstring& text);
  std::wstring Text() const;

 private:
  void ShowState();

  const ControlSpec& spec_;
  Control* control_;
  Observation<> observation_;
  HWND handle_;
  const UiFont* font_ = nullptr;
  HFONT__* fontHandle_ = nullptr;  ///< the one that the control was last given
};

/// Makes the native control of `control`; nullptr for one that is never shown. `picture` is what
/// a picture shows.
std::unique_ptr<NativeControl> MakeNativeControl(Control& control, HWND window, int id,
                                                 HICON picture);

}  // namespace kestrava
