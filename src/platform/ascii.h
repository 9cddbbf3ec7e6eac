#pragma once

#include <string_view>

namespace kestrava {

// What texts have in common in whichever locale: letters and digits of ASCII, and blanks.

constexpr bool IsDigit(char character) { return character >= '0' && character <= '9'; }

constexpr char LowerCase(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// The text without the blanks at its two ends.
constexpr std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace kestrava
