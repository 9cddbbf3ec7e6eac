#pragma once

#include <string>
#include <string_view>

namespace kestrava {

/// Puts a visible mark in the place of every character of `text`, in UTF-16, that nobody sees, or
/// that turns the characters after it around: "[U+202E]", say. Few fonts have the symbols that
/// Unicode keeps for some of them. Joiners stay where a script or an emoji needs them.
std::u16string WithStandIns(std::u16string_view text);

}  // namespace kestrava
