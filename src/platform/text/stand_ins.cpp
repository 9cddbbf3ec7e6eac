#include "platform/text/stand_ins.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <iterator>

namespace kestrava {

namespace {

struct Range {
  char32_t first;
  char32_t last;
};

/// Controls, separators of lines, and the format characters that aren't seen: the categories Cc,
/// Zl, Zp and Cf of UnicodeData.txt of Unicode 15, without the property
/// Prepended_Concatenation_Mark of PropList.txt.
constexpr auto kUnseen = std::to_array<Range>({
    {0x00, 0x1F},
    {0x7F, 0x9F},
    {0xAD, 0xAD},
    {0x61C, 0x61C},
    {0x180E, 0x180E},
    {0x200B, 0x200F},
    {0x2028, 0x202E},
    {0x2060, 0x2064},
    {0x2066, 0x206F},
    {0xFEFF, 0xFEFF},
    {0xFFF9, 0xFFFB},
    {0x13430, 0x1343F},
    {0x1BCA0, 0x1BCA3},
    {0x1D173, 0x1D17A},
    {0xE0001, 0xE0001},
    {0xE0020, 0xE007F},
});

/// The joiners and the Mongolian separator, which some scripts need.
constexpr auto kJoiners = std::to_array<Range>({{0x180E, 0x180E}, {0x200C, 0x200D}});

/// What a joiner can't change: the letters of Latin, Greek and Cyrillic, and most punctuation and
/// digits, by Blocks.txt. None of the characters that aren't seen takes a joiner either.
constexpr auto kNeverJoined = std::to_array<Range>({
    {0x00, 0x52F},
    {0x660, 0x66D},
    {0x6D4, 0x6D4},
    {0x6F0, 0x6F9},
    {0x964, 0x970},
    {0x1C80, 0x1C8F},
    {0x1D00, 0x206F},
    {0x2150, 0x218F},
    {0x2C60, 0x2C7F},
    {0x2DE0, 0x2E7F},
    {0x3000, 0x3020},
    {0xA640, 0xA69F},
    {0xA720, 0xA7FF},
    {0xAB30, 0xAB6F},
    {0xFB00, 0xFB06},
    {0xFE30, 0xFE6F},
    {0xFF00, 0xFF65},
});

/// `ranges` ascend.
template <std::size_t kCount>
bool AnyHas(const std::array<Range, kCount>& ranges, char32_t code) {
  const auto next = std::ranges::upper_bound(ranges, code, {}, &Range::first);
  return next != ranges.begin() && code <= std::prev(next)->last;
}

bool IsUnseen(char32_t code, char32_t previous) {
  if (!AnyHas(kJoiners, code)) return AnyHas(kUnseen, code);
  return AnyHas(kNeverJoined, previous) || AnyHas(kUnseen, previous);
}

// UTF-16: RFC 2781, section 2.
bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

std::u16string MarkFor(char32_t code) {
  std::array<char, 12> mark{};
  const int length =
      std::snprintf(mark.data(), mark.size(), "[U+%04X]", static_cast<unsigned>(code));
  return {mark.begin(), mark.begin() + length};
}

}  // namespace

std::u16string WithStandIns(std::u16string_view text) {
  std::u16string shown;
  shown.reserve(text.size());
  char32_t previous = 0;
  while (!text.empty()) {
    char32_t code = text.front();
    std::size_t length = 1;
    if (IsHighSurrogate(text[0]) && text.size() > 1 && IsLowSurrogate(text[1])) {
      code = 0x10000U + ((text[0] - 0xD800U) << 10) + (text[1] - 0xDC00U);
      length = 2;
    }
    if (IsUnseen(code, previous)) {
      shown += MarkFor(code);
    } else {
      shown += text.substr(0, length);
    }
    text.remove_prefix(length);
    previous = code;
  }
  return shown;
}

}  // namespace kestrava
