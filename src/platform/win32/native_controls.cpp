#include "platform/flex_grid.h"
#include "platform/win32/check_list_view.h"
#include "platform/win32/grid_view.h"
#include "platform/win32/native_control.h"
#include "platform/win32/native_label.h"
#include "platform/win32/wide_text.h"

namespace kestrava {

namespace {

/// Longer than any text: the system's own limit is the largest of its numbers.
constexpr WPARAM kNoLimit = 0;

/// Pixels at 96 to the inch between a button's edge and its caption, on both sides together.
constexpr int kButtonPadding = 10;
/// The box of a check box and the gap to its caption, the same way.
constexpr int kCheckBoxRoom = 22;

class NativeButton final : public NativeControl {
 public:
  NativeButton(Button& button, HWND window, int id)
      : NativeControl(button, window, id,
                      {WC_BUTTONW, WS_TABSTOP | BS_PUSHBUTTON | BS_MULTILINE, 0,
                       ToWide(button.Spec().caption)}) {}

  bool FitsInto(PixelSize room) const override {
    const int padding = MulDiv(kButtonPadding, Font().Height(), 13);
    const PixelSize size = Font().SizeOf(Text(), room.width - padding, Ampersand::AccessKey);
    return size.width + padding <= room.width && size.height + padding / 2 <= room.height;
  }

  void TakeCommand(WORD code) override {
    auto* button = As<Button>();
    if (button && code == BN_CLICKED) button->Press();
  }
};

class NativeTextBox final : public NativeControl {
 public:
  NativeTextBox(TextBox& textBox, HWND window, int id)
      : NativeControl(textBox, window, id,
                      {WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE}) {
    SendMessageW(Handle(), EM_SETLIMITTEXT, kNoLimit, 0);
  }

  void TakeCommand(WORD code) override {
    auto* textBox = As<TextBox>();
    // Only what the user edits is written back, so that the program's own bytes stay as they are.
    if (textBox && code == EN_CHANGE && !showing_) textBox->SetText(LineToBytes(Text()));
  }

 private:
  void Show() override {
    showing_ = true;
    const std::string& text = As<TextBox>()->Text();
    // What the user is typing stays as typed.
    if (LineToBytes(Text()) != text) SetText(ToShownLine(text));
    showing_ = false;
  }

  bool showing_ = false;
};

class NativeCheckBox final : public NativeControl {
 public:
  NativeCheckBox(CheckBox& checkBox, HWND window, int id)
      : NativeControl(
            checkBox, window, id,
            {WC_BUTTONW, WS_TABSTOP | BS_AUTOCHECKBOX, 0, ToWide(checkBox.Spec().caption)}) {}

  bool FitsInto(PixelSize room) const override {
    const PixelSize size = Font().SizeOf(Text(), room.width, Ampersand::AccessKey);
    return size.width + MulDiv(kCheckBoxRoom, Font().Height(), 13) <= room.width &&
           size.height <= room.height;
  }

  void TakeCommand(WORD code) override {
    auto* checkBox = As<CheckBox>();
    if (!checkBox || code != BN_CLICKED) return;
    checkBox->SetChecked(SendMessageW(Handle(), BM_GETCHECK, 0, 0) == BST_CHECKED);
  }

 private:
  void Show() override {
    SendMessageW(Handle(), BM_SETCHECK, As<CheckBox>()->Checked() ? BST_CHECKED : BST_UNCHECKED, 0);
  }
};

class NativePicture final : public NativeControl {
 public:
  NativePicture(Control& picture, HWND window, int id, HICON icon)
      : NativeControl(picture, window, id, {WC_STATICW, SS_ICON | SS_REALSIZECONTROL}) {
    SendMessageW(Handle(), STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
  }
};

}  // namespace

std::unique_ptr<NativeControl> MakeNativeControl(Control& control, HWND window, int id,
                                                 HICON picture) {
  switch (control.Spec().kind) {
    case ControlKind::Grid:
      return std::make_unique<GridView>(static_cast<MSFlexGrid&>(control), window, id);
    case ControlKind::Button:
      return std::make_unique<NativeButton>(static_cast<Button&>(control), window, id);
    case ControlKind::Label:
      return MakeNativeLabel(static_cast<Label&>(control), window, id);
    case ControlKind::TextBox:
      return std::make_unique<NativeTextBox>(static_cast<TextBox&>(control), window, id);
    case ControlKind::CheckBox:
      return std::make_unique<NativeCheckBox>(static_cast<CheckBox&>(control), window, id);
    case ControlKind::CheckList:
      return std::make_unique<CheckListView>(static_cast<CheckList&>(control), window, id);
    case ControlKind::Picture:
      return std::make_unique<NativePicture>(control, window, id, picture);
    case ControlKind::RemoteDesktop:
      break;
  }
  return nullptr;
}

}  // namespace kestrava
