#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace kestrava {

class Form;
class MenuEntry;
class WindowMessages;

/// The message that the notification area sends to the window for its icon: WM_APP + 21.
inline constexpr std::int32_t kTrayCallbackMessage = 32789;

/// A click on the balloon brings the window back, where the balloon's action says so.
inline constexpr const char* kShowMain = "ShowMain";

/// The messages of the icon in the notification area. A window procedure of its own stands in front
/// of the main window's, answers the icon's messages and hands all others on.
class modPopup {
 public:
  /// @param menu the top menu that a right click on the icon pops up, with `defaultEntry` marked.
  /// @param savedWindowProc gets the address of the window's own procedure, 0 for none.
  /// @param balloonAction what a click on the balloon does: nothing, or `kShowMain`.
  /// @param restoreWindow brings the window back.
  modPopup(Form& window, const MenuEntry& menu, const MenuEntry& defaultEntry,
           WindowMessages& messages, std::int32_t& savedWindowProc,
           const std::string& balloonAction, std::function<void()> restoreWindow);

  /// The handles of the main window and of its icon.
  std::int32_t Handle() const;
  std::int32_t IconHandle() const;

  /// Puts `TrayWindowProc` in front of the window's own procedure, whose address is saved. Where
  /// that fails nothing is hooked.
  void HookTrayMessages(std::int32_t hWnd);
  /// Puts the window's own procedure back. Does nothing where none is saved.
  void UnhookTrayMessages(std::int32_t hWnd);

 private:
  std::int32_t TrayWindowProc(std::int32_t hWnd, std::int32_t uMsg, std::int32_t wParam,
                              std::int32_t lParam);
  void ShowIconMenu();
  void BalloonClickAction();

  Form& window_;
  const MenuEntry& menu_;
  const MenuEntry& defaultEntry_;
  WindowMessages& messages_;
  std::int32_t& savedWindowProc_;
  const std::string& balloonAction_;
  std::function<void()> restoreWindow_;
};

}  // namespace kestrava
