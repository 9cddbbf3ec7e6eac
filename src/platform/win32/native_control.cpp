#include "platform/win32/native_control.h"

#include <utility>

namespace kestrava {

NativeControl::NativeControl(Control& control, HWND window, int id, const Make& make)
    : spec_(control.Spec()),
      control_(&control),
      handle_(CreateWindowExW(
          make.extendedStyle, make.windowClass, make.text.c_str(), make.style | WS_CHILD, 0, 0, 0,
          0, window, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr)) {}

void NativeControl::Follow() {
  ShowState();
  observation_ = control_->Observe([this] { ShowState(); });
}

void NativeControl::Detach() {
  observation_ = {};
  control_ = nullptr;
}

void NativeControl::SetScale(const TwipScale&, unsigned, const UiFont& font) {
  font_ = &font;
  if (std::exchange(fontHandle_, font.Handle()) == font.Handle()) return;
  SendMessageW(handle_, WM_SETFONT, reinterpret_cast<WPARAM>(font.Handle()), TRUE);
}

void NativeControl::SetText(const std::wstring& text) {
  if (Text() != text) SetWindowTextW(handle_, text.c_str());
}

std::wstring NativeControl::Text() const {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(handle_)), L'\0');
  const int length = GetWindowTextW(handle_, text.data(), static_cast<int>(text.size()) + 1);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

void NativeControl::ShowState() {
  if (!control_->Enabled() && GetFocus() == handle_) {
    // A disabled control would keep the keys to itself.
    SendMessageW(GetParent(handle_), WM_NEXTDLGCTL, 0, FALSE);
  }
  EnableWindow(handle_, control_->Enabled());
  ShowWindow(handle_, control_->Visible() ? SW_SHOWNA : SW_HIDE);
  Show();
}

}  // namespace kestrava
