#include "platform/win32/modal_waits.h"

#include <algorithm>
#include <ranges>

#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

/// The program's windows that have a title and belong to another one, the topmost first. Among them
/// is what the system itself has put up for the program.
std::vector<HWND> OwnedWindows() {
  std::vector<HWND> windows;
  const auto take = [](HWND window, LPARAM list) -> BOOL {
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
    if ((style & WS_CAPTION) == WS_CAPTION && GetWindow(window, GW_OWNER)) {
      reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    }
    return TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), take, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

}  // namespace

HWND ModalWaits::Owner() const {
  const auto ours = std::ranges::find_if(std::views::reverse(open_), std::identity());
  return ours == open_.rend() ? mainWindow_ : *ours;
}

void ModalWaits::Add(HWND window) {
  open_.push_back(window);
  Block();
}

void ModalWaits::Remove(HWND window) {
  const auto found = std::ranges::find(std::views::reverse(open_), window);
  if (found == open_.rend()) return;
  open_.erase(std::next(found).base());
  std::erase(hidden_, window);
  Block();
  // The system hands the keys on by itself only once the window has gone, and not always back here.
  if (window && GetActiveWindow() == window) SetActiveWindow(Owner());
}

void ModalWaits::Hide() {
  if (open_.empty()) return;
  hidden_ = OwnedWindows();
  for (HWND window : hidden_) ShowWindow(window, SW_HIDE);
}

void ModalWaits::Show() {
  for (HWND window : std::views::reverse(hidden_)) ShowWindow(window, SW_SHOWNA);
  hidden_.clear();
  BringToFront();
}

void ModalWaits::BringToFront() const {
  if (!mainWindow_) return;
  const std::vector<HWND> windows = OwnedWindows();
  const auto top = std::ranges::find_if(
      windows, [](HWND window) { return IsWindowVisible(window) && IsWindowEnabled(window); });
  SetForegroundWindow(top == windows.end() ? mainWindow_ : *top);
}

void ModalWaits::Cancel() const {
  EndMenu();
  for (HWND window : OwnedWindows()) {
    if (std::ranges::find(open_, window) == open_.end()) {
      PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    }
  }
}

void ModalWaits::Block() const {
  // The next one is unblocked first, so that there is always one that can take the keys.
  if (open_.empty() && mainWindow_) EnableWindow(mainWindow_, TRUE);
  if (!open_.empty() && open_.back()) EnableWindow(open_.back(), TRUE);
  if (!open_.empty() && mainWindow_) EnableWindow(mainWindow_, FALSE);
  for (HWND window : open_) {
    if (window && window != open_.back()) EnableWindow(window, FALSE);
  }
}

}  // namespace kestrava
