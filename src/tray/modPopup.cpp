#include "tray/modPopup.h"

#include <exception>
#include <utility>

#include "platform/notification_area.h"
#include "platform/window_messages.h"

namespace kestrava {

namespace {

/// Abandons `step` where it raises an error. Nothing of these is ever reported.
template <typename Step>
void Guarded(Step step) noexcept {
  try {
    step();
  } catch (const std::exception&) {
    return;
  }
}

}  // namespace

modPopup::modPopup(Form& window, const MenuEntry& menu, const MenuEntry& defaultEntry,
                   WindowMessages& messages, std::int32_t& savedWindowProc,
                   const std::string& balloonAction, std::function<void()> restoreWindow)
    : window_(window),
      menu_(menu),
      defaultEntry_(defaultEntry),
      messages_(messages),
      savedWindowProc_(savedWindowProc),
      balloonAction_(balloonAction),
      restoreWindow_(std::move(restoreWindow)) {
  messages_.SetIconMenu(window_, menu_, defaultEntry_);
}

std::int32_t modPopup::Handle() const { return messages_.WindowHandle(window_); }

std::int32_t modPopup::IconHandle() const { return messages_.IconHandle(window_); }

void modPopup::HookTrayMessages(std::int32_t hWnd) {
  Guarded([&] {
    const std::int32_t address = messages_.AddressOf(
        [this](std::int32_t window, std::int32_t message, std::int32_t wParam,
               std::int32_t lParam) { return TrayWindowProc(window, message, wParam, lParam); });
    savedWindowProc_ = messages_.SetWindowLongA(hWnd, GWL_WNDPROC, address);
  });
}

void modPopup::UnhookTrayMessages(std::int32_t hWnd) {
  if (savedWindowProc_ == 0) return;
  messages_.SetWindowLongA(hWnd, GWL_WNDPROC, savedWindowProc_);
  savedWindowProc_ = 0;
}

std::int32_t modPopup::TrayWindowProc(std::int32_t hWnd, std::int32_t uMsg, std::int32_t wParam,
                                      std::int32_t lParam) {
  if (hWnd != Handle() || uMsg != kTrayCallbackMessage) {
    return messages_.CallWindowProcA(savedWindowProc_, hWnd, uMsg, wParam, lParam);
  }
  // The user may pick Exit in the menu: nothing of the window is touched after it.
  if (lParam == WM_RBUTTONUP) {
    ShowIconMenu();
  } else if (lParam == NIN_BALLOONUSERCLICK) {
    Guarded([this] { BalloonClickAction(); });
  }
  return 0;
}

void modPopup::ShowIconMenu() {
  Guarded([this] { messages_.SetForegroundWindow(Handle()); });
  Guarded([this] { messages_.PopupMenu(window_, menu_, defaultEntry_); });
}

void modPopup::BalloonClickAction() {
  if (balloonAction_ == kShowMain) restoreWindow_();
}

}  // namespace kestrava
