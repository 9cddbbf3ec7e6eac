#pragma once

#include <cstdint>
#include <functional>

namespace kestrava {

class Form;
class MenuEntry;

/// A window procedure: window, message and the message's two arguments; gives the message's result.
using WindowProc = std::function<std::int32_t(std::int32_t hWnd, std::int32_t uMsg,
                                              std::int32_t wParam, std::int32_t lParam)>;

/// From winuser.h of the Windows SDK.
inline constexpr int GWL_WNDPROC = -4;

/// The messages that the desktop sends to a window, and what answers them.
class WindowMessages {
 public:
  virtual ~WindowMessages() = default;

  /// The handle of a loaded window; 0 for any other.
  virtual std::int32_t WindowHandle(const Form& form) const = 0;

  /// The handle of the window's own icon.
  virtual std::int32_t IconHandle(const Form& form) const = 0;

  /// A number under which `SetWindowLongA` knows `procedure`, never 0.
  virtual std::int32_t AddressOf(WindowProc procedure) = 0;

  /// With `GWL_WNDPROC`: makes the procedure of that address the window's own.
  /// @return the address of the one that it replaced; 0 if there is no such window.
  virtual std::int32_t SetWindowLongA(std::int32_t hWnd, int index, std::int32_t address) = 0;

  /// Runs the procedure of that address and gives its result.
  virtual std::int32_t CallWindowProcA(std::int32_t address, std::int32_t hWnd, std::int32_t uMsg,
                                       std::int32_t wParam, std::int32_t lParam) = 0;

  virtual void SetForegroundWindow(std::int32_t hWnd) = 0;

  /// Tells which menu of `form` its icon in the notification area has, for desktops that draw that
  /// menu themselves; all others ask for it by `PopupMenu`. The three must stay for as long as the
  /// icon does.
  virtual void SetIconMenu(Form&, const MenuEntry& /*menu*/, const MenuEntry& /*defaultEntry*/) {}

  /// Shows the entries of the top menu `menu` of `form` at the mouse pointer, `defaultEntry` marked
  /// as the default where it is visible. Returns when the menu has closed; the command that the
  /// user picked has run by then.
  virtual void PopupMenu(Form& form, const MenuEntry& menu, const MenuEntry& defaultEntry) = 0;
};

}  // namespace kestrava
