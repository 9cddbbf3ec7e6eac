#include "platform/win32/ui_font.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/win32/wide_text.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr double kPointsPerInch = 72;

/// A screen to measure texts on, with a font.
class Measure {
 public:
  explicit Measure(HFONT font) : screen_(GetDC(nullptr)), before_(SelectObject(screen_, font)) {}
  ~Measure() {
    SelectObject(screen_, before_);
    ReleaseDC(nullptr, screen_);
  }
  Measure(const Measure&) = delete;
  Measure& operator=(const Measure&) = delete;

  HDC Screen() const { return screen_; }

 private:
  HDC screen_;
  HGDIOBJ before_;
};

}  // namespace

UiFont::UiFont(unsigned dotsPerInch, const LabelLook& look) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0, dotsPerInch);
  LOGFONTW font = metrics.lfMessageFont;
  if (*look.family != '\0') {
    const std::wstring family = ToWide(look.family);
    std::ranges::fill(font.lfFaceName, L'\0');
    family.copy(font.lfFaceName, LF_FACESIZE - 1);
  }
  if (look.points > 0) {
    font.lfHeight = -static_cast<LONG>(std::lround(look.points * dotsPerInch / kPointsPerInch));
  }
  if (look.bold) font.lfWeight = FW_BOLD;
  font_ = CreateFontIndirectW(&font);
}

UiFont::~UiFont() {
  if (font_) DeleteObject(font_);
}

UiFont::UiFont(UiFont&& other) noexcept : font_(std::exchange(other.font_, nullptr)) {}

UiFont& UiFont::operator=(UiFont&& other) noexcept {
  std::swap(font_, other.font_);
  return *this;
}

int UiFont::Height() const {
  const Measure measure(font_);
  TEXTMETRICW metrics{};
  GetTextMetricsW(measure.Screen(), &metrics);
  return static_cast<int>(metrics.tmHeight);
}

PixelSize UiFont::SizeOf(const std::wstring& text, int width, Ampersand ampersand) const {
  const Measure measure(font_);
  RECT room{0, 0, width, 0};
  UINT form = DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS;
  if (ampersand == Ampersand::Itself) form |= DT_NOPREFIX;
  DrawTextW(measure.Screen(), text.c_str(), -1, &room, form);
  return {static_cast<int>(room.right), static_cast<int>(room.bottom)};
}

}  // namespace kestrava
