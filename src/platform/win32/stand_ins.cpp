#include "platform/win32/stand_ins.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cwchar>

namespace kestrava {

namespace {

struct Range {
  char32_t first;
  char32_t last;

  bool Has(char32_t code) const { return code >= first && code <= last; }
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

/// What a joiner can't change: the letters of Latin, Greek and Cyrillic and the punctuation, by
/// blocks of Blocks.txt.
constexpr auto kNeverJoined = std::to_array<Range>({
    {0x00, 0x52F},
    {0x1C80, 0x1C8F},
    {0x1D00, 0x206F},
    {0x2C60, 0x2C7F},
    {0x2DE0, 0x2E7F},
    {0xA640, 0xA69F},
    {0xA720, 0xA7FF},
    {0xAB30, 0xAB6F},
});

template <std::size_t kCount>
bool AnyHas(const std::array<Range, kCount>& ranges, char32_t code) {
  return std::ranges::any_of(ranges, [code](const Range& range) { return range.Has(code); });
}

bool IsUnseen(char32_t code, char32_t previous) {
  if (AnyHas(kJoiners, code)) return AnyHas(kNeverJoined, previous);
  return AnyHas(kUnseen, code);
}

// UTF-16: RFC 2781, section 2.
bool IsHighSurrogate(wchar_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(wchar_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

std::wstring WithStandIns(const std::wstring& text) {
  std::wstring shown;
  shown.reserve(text.size());
  char32_t previous = 0;
  for (std::size_t place = 0; place < text.size(); ++place) {
    const wchar_t unit = text[place];
    char32_t code = unit;
    std::size_t length = 1;
    if (IsHighSurrogate(unit) && place + 1 < text.size() && IsLowSurrogate(text[place + 1])) {
      code = 0x10000 + ((unit - 0xD800U) << 10) + (text[place + 1] - 0xDC00U);
      length = 2;
    }
    if (IsUnseen(code, previous)) {
      std::array<wchar_t, 12> mark{};
      std::swprintf(mark.data(), mark.size(), L"[U+%04X]", static_cast<unsigned>(code));
      shown += mark.data();
    } else {
      shown.append(text, place, length);
    }
    place += length - 1;
    previous = code;
  }
  return shown;
}

}  // namespace kestrava
