#include "platform/numbered_windows.h"

#include <algorithm>
#include <utility>

namespace kestrava {

namespace {

/// The address of the procedure that every window has at first. It answers nothing: the desktop
/// sees to its windows by itself.
constexpr std::int32_t kDefaultProcedure = 1;
constexpr std::int32_t kFirstAddress = 2;

}  // namespace

std::int32_t NumberedWindows::WindowHandle(const Form& form) const {
  if (!IsLoaded(form)) return 0;
  const auto found = std::ranges::find(forms_, &form);
  const auto place = found - forms_.begin();
  if (found == forms_.end()) forms_.push_back(&form);
  return static_cast<std::int32_t>(place + 1);
}

std::int32_t NumberedWindows::AddressOf(WindowProc procedure) {
  procedures_.push_back(std::move(procedure));
  return kFirstAddress + static_cast<std::int32_t>(procedures_.size()) - 1;
}

std::int32_t NumberedWindows::SetWindowLongA(std::int32_t hWnd, int index, std::int32_t address) {
  const bool known =
      address >= kDefaultProcedure && address <= static_cast<std::int32_t>(procedures_.size()) + 1;
  if (index != GWL_WNDPROC || !known || !FormOf(hWnd)) return 0;
  const auto [place, added] = addresses_.try_emplace(hWnd, kDefaultProcedure);
  return std::exchange(place->second, address);
}

std::int32_t NumberedWindows::CallWindowProcA(std::int32_t address, std::int32_t hWnd,
                                              std::int32_t uMsg, std::int32_t wParam,
                                              std::int32_t lParam) {
  const auto place = static_cast<std::size_t>(address - kFirstAddress);
  if (address < kFirstAddress || place >= procedures_.size()) return 0;
  return procedures_[place](hWnd, uMsg, wParam, lParam);
}

void NumberedWindows::Send(std::int32_t hWnd, std::int32_t uMsg, std::int32_t wParam,
                           std::int32_t lParam) {
  const auto found = addresses_.find(hWnd);
  if (found == addresses_.end() || !FormOf(hWnd)) return;
  CallWindowProcA(found->second, hWnd, uMsg, wParam, lParam);
}

const Form* NumberedWindows::FormOf(std::int32_t hWnd) const {
  if (hWnd < 1 || hWnd > static_cast<std::int32_t>(forms_.size())) return nullptr;
  const Form* form = forms_[static_cast<std::size_t>(hWnd - 1)];
  return IsLoaded(*form) ? form : nullptr;
}

}  // namespace kestrava
