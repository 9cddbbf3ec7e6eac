#pragma once

#include <optional>

#include "platform/form.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

/// Which of a menu's commands are available.
enum class Commands { All, FreeOnly };

/// The native menus of one form: its menu bar, and each of its menus by itself. They are filled as
/// the form's table stands whenever one is about to be seen.
class NativeMenu {
 public:
  /// Gives `window` the menu bar of `form`. The window destroys it with itself.
  NativeMenu(const Form& form, HWND window);

  /// Fills `menu`, one of the bar's, if it is one.
  void Fill(HMENU menu, Commands commands) const;
  /// Fills a menu with the entries of `top`, `defaultEntry` marked where it is visible.
  void Fill(HMENU menu, const MenuEntry& top, const MenuEntry* defaultEntry,
            Commands commands) const;
  /// Runs the command of that number, if there is such a command and it is available.
  void Run(UINT command, Commands commands) const;
  /// Runs the command whose shortcut `key` is. @return whether there is one.
  bool RunShortcut(WPARAM key, Commands commands) const;

 private:
  const std::vector<MenuEntry*>& entries_;
  std::vector<HMENU> menus_;  ///< of the bar, in its order
};

}  // namespace kestrava
