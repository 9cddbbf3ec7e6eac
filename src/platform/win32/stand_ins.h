#pragma once

#include <string>

namespace kestrava {

/// Puts a visible mark in the place of every character of `text` that nobody sees, or that turns
/// the characters after it around: "[U+202E]", say. Joiners stay where a script or an emoji needs
/// them.
std::wstring WithStandIns(const std::wstring& text);

}  // namespace kestrava
