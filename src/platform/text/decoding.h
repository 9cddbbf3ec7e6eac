#pragma once

#include <string>
#include <string_view>

namespace kestrava {

/// Decodes a text into UTF-16: valid UTF-8 as UTF-8, anything else as Windows-1252, so that lists
/// from older machines read right. Never fails.
std::u16string Decoded(std::string_view bytes);

/// The text without the multi-byte character of UTF-8 that its end has cut, if there is one.
std::string_view WithoutCutCharacter(std::string_view text);

}  // namespace kestrava
