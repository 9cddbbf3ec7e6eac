#include "platform/text/decoding.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace kestrava {

namespace {

// See RFC 3629, sections 3 and 4, for how UTF-8 marks the first byte of a character and those after
// it, and for what isn't valid.
constexpr std::size_t kMostContinuations = 3;
constexpr unsigned kContinuationBits = 6;

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

std::size_t LengthOf(char firstByte) {
  const auto byte = static_cast<unsigned char>(firstByte);
  if (byte >= 0xF0) return 4;
  if (byte >= 0xE0) return 3;
  return byte >= 0xC0 ? 2 : 1;
}

/// The first character of a text that isn't empty, or nothing if it isn't valid.
std::optional<char32_t> FirstOf(std::string_view text) {
  /// The least code point that needs so many bytes, by their number.
  constexpr std::array<char32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
  const auto first = static_cast<unsigned char>(text.front());
  if (first < 0x80) return first;
  const std::size_t length = LengthOf(text.front());
  if (length == 1 || first >= 0xF8 || text.size() < length) return std::nullopt;
  char32_t code = first & (0x7FU >> length);
  for (const char byte : text.substr(1, length - 1)) {
    if (!IsContinuation(byte)) return std::nullopt;
    code = code << kContinuationBits | (static_cast<unsigned char>(byte) & 0x3FU);
  }
  const bool surrogate = code >= 0xD800 && code < 0xE000;
  if (code < kLeast[length] || code > 0x10FFFF || surrogate) return std::nullopt;
  return code;
}

std::optional<std::u16string> FromUtf8(std::string_view bytes) {
  std::u16string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const auto code = FirstOf(bytes);
    if (!code) return std::nullopt;
    if (*code < 0x10000) {
      text += static_cast<char16_t>(*code);
    } else {
      // RFC 2781, section 2.1.
      const char32_t rest = *code - 0x10000;
      text += static_cast<char16_t>(0xD800 + (rest >> 10));
      text += static_cast<char16_t>(0xDC00 + (rest & 0x3FF));
    }
    bytes.remove_prefix(LengthOf(bytes.front()));
  }
  return text;
}

/// Code points of the bytes 0x80 to 0x9F in Windows-1252, from the Unicode mapping table
/// CP1252.TXT. The five bytes that the table leaves open stand for the control characters of the
/// same number.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::u16string FromWindows1252(std::string_view bytes) {
  std::u16string text(bytes.size(), u'\0');
  std::ranges::transform(bytes, text.begin(), [](char byte) -> char16_t {
    const auto code = static_cast<unsigned char>(byte);
    return code >= 0x80 && code < 0xA0 ? kWindows1252[code - 0x80U] : code;
  });
  return text;
}

}  // namespace

std::u16string Decoded(std::string_view bytes) {
  if (auto text = FromUtf8(bytes)) return *std::move(text);
  return FromWindows1252(bytes);
}

std::string_view WithoutCutCharacter(std::string_view text) {
  std::size_t after = 0;
  while (after < text.size() && after < kMostContinuations &&
         IsContinuation(text[text.size() - 1 - after])) {
    ++after;
  }
  if (after == text.size()) return text;
  const std::size_t start = text.size() - 1 - after;
  return LengthOf(text[start]) > after + 1 ? text.substr(0, start) : text;
}

}  // namespace kestrava
