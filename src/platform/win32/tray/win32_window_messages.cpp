#include "platform/win32/tray/win32_window_messages.h"

#include <algorithm>
#include <utility>

#include "platform/win32/native_menu.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

/// The address of the procedure that every window has at first. It answers nothing: the system sees
/// to its windows by itself.
constexpr std::int32_t kDefaultProcedure = 1;
constexpr std::int32_t kFirstAddress = 2;

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

std::int32_t Win32WindowMessages::WindowHandle(const Form& form) const {
  if (!windows_.WindowOf(form)) return 0;
  const auto found = std::ranges::find(forms_, &form);
  const auto place = found - forms_.begin();
  if (found == forms_.end()) forms_.push_back(&form);
  return static_cast<std::int32_t>(place + 1);
}

std::int32_t Win32WindowMessages::AddressOf(WindowProc procedure) {
  procedures_.push_back(std::move(procedure));
  return kFirstAddress + static_cast<std::int32_t>(procedures_.size()) - 1;
}

std::int32_t Win32WindowMessages::SetWindowLongA(std::int32_t hWnd, int index,
                                                 std::int32_t address) {
  const bool known =
      address >= kDefaultProcedure && address <= static_cast<std::int32_t>(procedures_.size()) + 1;
  if (index != GWL_WNDPROC || !known || !WindowOf(hWnd)) return 0;
  const auto [place, added] = addresses_.try_emplace(hWnd, kDefaultProcedure);
  return std::exchange(place->second, address);
}

std::int32_t Win32WindowMessages::CallWindowProcA(std::int32_t address, std::int32_t hWnd,
                                                  std::int32_t uMsg, std::int32_t wParam,
                                                  std::int32_t lParam) {
  const auto place = static_cast<std::size_t>(address - kFirstAddress);
  if (address < kFirstAddress || place >= procedures_.size()) return 0;
  return procedures_[place](hWnd, uMsg, wParam, lParam);
}

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

void Win32WindowMessages::Send(std::int32_t hWnd, std::int32_t uMsg, std::int32_t wParam,
                               std::int32_t lParam) {
  const auto found = addresses_.find(hWnd);
  if (found == addresses_.end() || !WindowOf(hWnd)) return;
  CallWindowProcA(found->second, hWnd, uMsg, wParam, lParam);
}

HWND Win32WindowMessages::WindowOf(std::int32_t hWnd) const {
  if (hWnd < 1 || hWnd > static_cast<std::int32_t>(forms_.size())) return nullptr;
  return windows_.WindowOf(*forms_[static_cast<std::size_t>(hWnd - 1)]);
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
