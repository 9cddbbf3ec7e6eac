#include "platform/text/shown_text.h"

#include <algorithm>
#include <cstddef>

#include "platform/text/decoding.h"
#include "platform/text/stand_ins.h"

namespace kestrava {

namespace {

/// More would take a toolkit seconds to lay out, and nobody reads it.
constexpr std::size_t kMostShownBytes = 2048;

constexpr char16_t kEllipsis = 0x2026;

}  // namespace

std::u16string ShownLine(std::string_view bytes) {
  if (bytes.size() <= kMostShownBytes) return WithStandIns(Decoded(bytes));
  const std::string_view begin = WithoutCutCharacter(bytes.substr(0, kMostShownBytes));
  return WithStandIns(Decoded(begin)) + kEllipsis;
}

std::u16string ShownField(std::string_view field) {
  const std::size_t nul = field.find('\0');
  const std::u16string text =
      Decoded(nul == field.npos ? WithoutCutCharacter(field) : field.substr(0, nul));
  std::u16string shown;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(u'\n', begin), text.size());
    std::u16string_view line(text.data() + begin, end - begin);
    if (line.ends_with(u'\r')) line.remove_suffix(1);
    if (begin > 0) shown += u'\n';
    shown += WithStandIns(line);
    begin = end + 1;
  }
  return shown;
}

std::string AsOneLine(std::string bytes) {
  std::ranges::replace_if(
      bytes, [](char byte) { return byte == '\r' || byte == '\n'; }, ' ');
  return bytes;
}

}  // namespace kestrava
