#pragma once

#include "platform/numbered_windows.h"
#include "platform/win32/handles.h"
#include "platform/win32/win32_window_system.h"

namespace kestrava {

/// Window messages for the windows of a `Win32WindowSystem`.
class Win32WindowMessages final : public NumberedWindows {
 public:
  explicit Win32WindowMessages(Win32WindowSystem& windows) : windows_(windows) {}

  /// Brings those that wait above it to the front, too.
  void SetForegroundWindow(std::int32_t hWnd) override;
  /// While another popup is open, that one is opened afresh instead.
  void PopupMenu(Form& form, const MenuEntry& menu, const MenuEntry& defaultEntry) override;

  /// The window to which popups belong while all others are out of sight.
  void SetHelper(HWND__* helper) { helper_ = helper; }

  /// The system's window of a number; nullptr for one that isn't loaded.
  HWND__* WindowOf(std::int32_t hWnd) const;

 private:
  bool IsLoaded(const Form& form) const override { return windows_.WindowOf(form) != nullptr; }
  void ShowPopup(const Form& form, const MenuEntry& menu, const MenuEntry& defaultEntry);

  Win32WindowSystem& windows_;
  HWND__* helper_ = nullptr;
  bool popupOpen_ = false;
  bool popupAskedAgain_ = false;
};

}  // namespace kestrava
