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

}  // namespace kestrava
