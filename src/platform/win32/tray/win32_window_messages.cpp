#include "platform/win32/tray/win32_window_messages.h"

#include "platform/win32/native_menu.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

/// A menu that nobody else destroys.
class Popup {
 public:
  Popup() : menu_(CreatePopupMenu()) {}
  ~Popup() { DestroyMenu(menu_); }
  Popup(const Popup&) = delete;
  Popup& operator=(const Popup&) = delete;

  HMENU Handle() const { return menu_; }

 private:
  HMENU menu_;
};

}  // namespace

void Win32WindowMessages::SetForegroundWindow(std::int32_t hWnd) {
  const HWND window = WindowOf(hWnd);
  if (!window) return;
  if (IsWindowVisible(window)) {
    windows_.Waits().BringToFront();
  } else {
    // A popup closes at a click elsewhere only if its program is in front.
    ::SetForegroundWindow(helper_);
  }
}

void Win32WindowMessages::PopupMenu(Form& form, const MenuEntry& menu,
                                    const MenuEntry& defaultEntry) {
  if (popupOpen_) {
    popupAskedAgain_ = true;
    EndMenu();
    return;
  }
  do {
    popupAskedAgain_ = false;
    ShowPopup(form, menu, defaultEntry);
  } while (popupAskedAgain_);
}

HWND Win32WindowMessages::WindowOf(std::int32_t hWnd) const {
  const Form* form = FormOf(hWnd);
  return form ? windows_.WindowOf(*form) : nullptr;
}

void Win32WindowMessages::ShowPopup(const Form& form, const MenuEntry& menu,
                                    const MenuEntry& defaultEntry) {
  const NativeMenu* source = windows_.MenuOf(form);
  if (!source || windows_.HasEnded()) return;
  const Popup popup;
  source->Fill(popup.Handle(), menu, &defaultEntry,
               windows_.Waits().Any() ? Commands::FreeOnly : Commands::All);
  POINT pointer{};
  GetCursorPos(&pointer);
  HWND owner = windows_.Waits().Owner();
  if (!owner || !IsWindowVisible(owner)) owner = helper_;
  popupOpen_ = true;
  const auto command = static_cast<UINT>(
      TrackPopupMenuEx(popup.Handle(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON,
                       static_cast<int>(pointer.x), static_cast<int>(pointer.y), owner, nullptr));
  popupOpen_ = false;
  // The window may have gone while the menu was open.
  source = windows_.MenuOf(form);
  if (!source || command == 0) return;
  source->Run(command, windows_.Waits().Any() ? Commands::FreeOnly : Commands::All);
}

}  // namespace kestrava
