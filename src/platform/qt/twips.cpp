#include "platform/qt/twips.h"

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

QRect TwipScale::PlaceOf(const ControlSpec& control) const {
  const QPoint topLeft(ToPixels(control.left), ToPixels(control.top));
  const QPoint end(ToPixels(control.left + control.width), ToPixels(control.top + control.height));
  return QRect(topLeft, QSize(end.x() - topLeft.x(), end.y() - topLeft.y()));
}

}  // namespace kestrava
