#include "platform/win32/native_label.h"

#include <limits>
#include <optional>

#include "platform/win32/wide_text.h"

namespace kestrava {

namespace {

class NativeLabel : public NativeControl {
 public:
  NativeLabel(Label& label, HWND window, int id, const Make& make)
      : NativeControl(label, window, id, make), look_(label.Look()) {}

  void SetScale(const TwipScale& scale, unsigned dotsPerInch, const UiFont& font) override {
    if (look_ != LabelLook()) own_.emplace(dotsPerInch, look_);
    NativeControl::SetScale(scale, dotsPerInch, own_ ? *own_ : font);
  }

  bool FitsInto(PixelSize room) const override {
    const auto* label = As<Label>();
    if (!label) return true;
    const PixelSize size = Font().SizeOf(ToWide(label->Caption()), room.width, Ampersand::Itself);
    return size.width <= room.width && size.height <= room.height;
  }

 private:
  void Show() override { SetText(TextOf(ToWide(As<Label>()->Caption()))); }
  /// The caption as this kind of control wants it.
  virtual std::wstring TextOf(const std::wstring& caption) const { return caption; }

  LabelLook look_;
  std::optional<UiFont> own_;
};

class NativeLink final : public NativeLabel {
 public:
  NativeLink(Label& label, HWND window, int id)
      : NativeLabel(label, window, id, {WC_LINK, WS_TABSTOP}) {}

  LRESULT TakeNotification(NMHDR& note) override {
    auto* label = As<Label>();
    if (label && (note.code == NM_CLICK || note.code == NM_RETURN)) label->Click.Raise();
    return 0;
  }

 private:
  std::wstring TextOf(const std::wstring& caption) const override {
    return L"<a>" + caption + L"</a>";
  }
};

}  // namespace

std::unique_ptr<NativeControl> MakeNativeLabel(Label& label, HWND window, int id) {
  if (label.Look().link) return std::make_unique<NativeLink>(label, window, id);
  return std::make_unique<NativeLabel>(label, window, id,
                                       NativeControl::Make{WC_STATICW, SS_LEFT | SS_NOPREFIX});
}

}  // namespace kestrava
