#pragma once

#include <cstdint>

namespace kestrava {

/// A colour in the form 0x00BBGGRR.
using Color = std::uint32_t;

inline constexpr Color kWhite = 0xFFFFFF;
inline constexpr Color kGreen = 0x00FF00;
inline constexpr Color kRed = 0x0000FF;

/// No colour was ever set: the desktop's own background shows.
inline constexpr Color kNoColor = 0xFFFFFFFF;

/// What a lamp of that colour tells, in words, for those who don't see it.
constexpr const char* LampMeaning(Color color) {
  switch (color) {
    case kGreen:
      return "Online";
    case kRed:
      return "Offline";
    default:
      return "Unchecked";
  }
}

}  // namespace kestrava
