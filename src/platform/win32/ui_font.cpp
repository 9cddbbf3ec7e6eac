#include "platform/win32/ui_font.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/win32/wide_text.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr double kPointsPerInch = 72;

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
  // It measures like the screen, which would have to be asked for each time.
  measure_ = CreateCompatibleDC(nullptr);
  SelectObject(measure_, font_);
}

UiFont::~UiFont() {
  if (measure_) DeleteDC(measure_);
  if (font_) DeleteObject(font_);
}

UiFont::UiFont(UiFont&& other) noexcept
    : font_(std::exchange(other.font_, nullptr)),
      measure_(std::exchange(other.measure_, nullptr)) {}

UiFont& UiFont::operator=(UiFont&& other) noexcept {
  std::swap(font_, other.font_);
  std::swap(measure_, other.measure_);
  return *this;
}

int UiFont::Height() const {
  TEXTMETRICW metrics{};
  GetTextMetricsW(measure_, &metrics);
  return static_cast<int>(metrics.tmHeight);
}

PixelSize UiFont::SizeOf(const std::wstring& text, int width, Ampersand ampersand) const {
  RECT room{0, 0, width, 0};
  UINT form = DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS;
  if (ampersand == Ampersand::Itself) form |= DT_NOPREFIX;
  DrawTextW(measure_, text.c_str(), -1, &room, form);
  return {static_cast<int>(room.right), static_cast<int>(room.bottom)};
}

}  // namespace kestrava
