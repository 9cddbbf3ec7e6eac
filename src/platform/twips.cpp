#include "platform/twips.h"

#include <cmath>

namespace kestrava {

namespace {

constexpr int kTwipsPerPixel = 15;

}  // namespace

int TwipScale::ToPixels(int twips) const {
  return static_cast<int>(std::lround(twips * scale_ / kTwipsPerPixel));
}

int TwipScale::ToTwips(int pixels) const {
  return static_cast<int>(std::lround(pixels * kTwipsPerPixel / scale_));
}

PixelPlace TwipScale::PlaceOf(const ControlSpec& control) const {
  const int left = ToPixels(control.left);
  const int top = ToPixels(control.top);
  return {left, top, ToPixels(control.left + control.width) - left,
          ToPixels(control.top + control.height) - top};
}

}  // namespace kestrava
