#pragma once

#include <string>

#include "platform/control.h"
#include "platform/win32/handles.h"

namespace kestrava {

/// Width and height in pixels.
struct PixelSize {
  int width;
  int height;
};

/// What an "&" in a text stands for.
enum class Ampersand { AccessKey, Itself };

/// A width in which nothing is broken into lines.
inline constexpr int kOneLine = 1 << 20;

/// A font of the user interface.
class UiFont {
 public:
  /// The user's own font for windows, as large as `dotsPerInch` asks for, or what `look` makes of
  /// it.
  explicit UiFont(unsigned dotsPerInch, const LabelLook& look = {});
  ~UiFont();
  UiFont(UiFont&& other) noexcept;
  UiFont& operator=(UiFont&& other) noexcept;

  HFONT__* Handle() const { return font_; }
  /// In pixels, from the highest letter to the lowest.
  int Height() const;
  /// The room that `text` takes, broken into lines of `width` pixels, or longer ones where a word
  /// is.
  PixelSize SizeOf(const std::wstring& text, int width, Ampersand ampersand) const;

 private:
  HFONT__* font_;
  HDC__* measure_;  ///< has the font selected
};

}  // namespace kestrava
