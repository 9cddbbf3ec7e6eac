#pragma once

#include <deque>
#include <map>

#include "platform/win32/handles.h"
#include "platform/win32/win32_window_system.h"
#include "platform/window_messages.h"

namespace kestrava {

/// Window messages for the windows of a `Win32WindowSystem`. The program's handles and addresses
/// are numbers of 32 bits; the system's are longer, so each stands for one of them here. A window's
/// procedure gets the messages of its icon only.
class Win32WindowMessages final : public WindowMessages {
 public:
  explicit Win32WindowMessages(Win32WindowSystem& windows) : windows_(windows) {}

  std::int32_t WindowHandle(const Form& form) const override;
  std::int32_t IconHandle(const Form& form) const override { return WindowHandle(form); }
  std::int32_t AddressOf(WindowProc procedure) override;
  std::int32_t SetWindowLongA(std::int32_t hWnd, int index, std::int32_t address) override;
  std::int32_t CallWindowProcA(std::int32_t address, std::int32_t hWnd, std::int32_t uMsg,
                               std::int32_t wParam, std::int32_t lParam) override;
  /// Brings those that wait above it to the front, too.
  void SetForegroundWindow(std::int32_t hWnd) override;
  /// While another popup is open, that one is opened afresh instead.
  void PopupMenu(Form& form, const MenuEntry& menu, const MenuEntry& defaultEntry) override;

  /// The window to which popups belong while all others are out of sight.
  void SetHelper(HWND__* helper) { helper_ = helper; }

  /// Runs the window's own procedure; a window that has gone gets nothing.
  void Send(std::int32_t hWnd, std::int32_t uMsg, std::int32_t wParam, std::int32_t lParam);

  /// The system's window of a number; nullptr for one that isn't loaded.
  HWND__* WindowOf(std::int32_t hWnd) const;

 private:
  void ShowPopup(const Form& form, const MenuEntry& menu, const MenuEntry& defaultEntry);

  Win32WindowSystem& windows_;
  HWND__* helper_ = nullptr;
  bool popupOpen_ = false;
  bool popupAskedAgain_ = false;
  /// A form keeps its number for good. A handle is the place in this list, from 1.
  mutable std::deque<const Form*> forms_;
  std::map<std::int32_t, std::int32_t> addresses_;  ///< of the procedures that windows were given
  std::deque<WindowProc> procedures_;  ///< an address is the place in this list, from 2
};

}  // namespace kestrava
