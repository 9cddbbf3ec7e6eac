#include "general/conversion.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "platform/ascii.h"
#include "platform/runtime_error.h"

namespace kestrava {

namespace {

std::string_view WithoutPlus(std::string_view text) {
  if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
  return text;
}

/// @param word in small letters.
bool IsWord(std::string_view text, std::string_view word) {
  return std::ranges::equal(text, word, {}, LowerCase);
}

}  // namespace

bool ReadsAsNumber(std::string_view text) {
  std::string_view digits = WithoutBlanks(text);
  if (!digits.empty() && (digits.front() == '+' || digits.front() == '-')) digits.remove_prefix(1);
  const std::size_t point = digits.find('.');
  const std::string_view fraction =
      point == std::string_view::npos ? std::string_view() : digits.substr(point + 1);
  const std::string_view whole = digits.substr(0, point);
  return !(whole.empty() && fraction.empty()) && std::ranges::all_of(whole, IsDigit) &&
         std::ranges::all_of(fraction, IsDigit);
}

std::optional<bool> ToBoolean(std::string_view text) {
  const std::string_view word = WithoutBlanks(text);
  if (IsWord(word, "true")) return true;
  if (IsWord(word, "false")) return false;
  if (!ReadsAsNumber(word)) return std::nullopt;
  return word.find_first_of("123456789") != std::string_view::npos;
}

std::int32_t ToWholeNumber(std::string_view text) {
  const std::string_view digits = WithoutPlus(WithoutBlanks(text));
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error == std::errc::invalid_argument || end != digits.data() + digits.size()) {
    throw RuntimeError(kErrorTypeMismatch, "not a whole number: " + std::string(text));
  }
  if (error == std::errc::result_out_of_range) {
    throw RuntimeError(kErrorOverflow, "too large a number: " + std::string(text));
  }
  return number;
}

}  // namespace kestrava
