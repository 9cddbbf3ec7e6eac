#pragma once

#include "platform/control.h"

namespace kestrava {

/// A place in a window, in pixels.
struct PixelPlace {
  int left;
  int top;
  int width;
  int height;
};

/// Turns the twips of one window into the pixels of its desktop. At the scale 1, made for a user
/// interface font 13 pixels high (8 points at 96 pixels an inch), a pixel is 15 twips (1440 twips
/// an inch at the same 96 pixels).
class TwipScale {
 public:
  explicit TwipScale(double scale = 1) : scale_(scale) {}

  /// The scale that a font of `fontHeight` pixels asks for.
  static TwipScale ForFontHeight(int fontHeight) { return TwipScale(fontHeight / 13.0); }

  /// The next scale worth a try where this one turned out to be too small.
  TwipScale Larger() const { return TwipScale(scale_ * 1.01); }

  int ToPixels(int twips) const;
  int ToTwips(int pixels) const;

  /// The place of a control. Neighbours that share an edge in twips share it in pixels too.
  PixelPlace PlaceOf(const ControlSpec& control) const;

 private:
  double scale_;
};

}  // namespace kestrava
