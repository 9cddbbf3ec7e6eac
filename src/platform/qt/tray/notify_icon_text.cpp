#include "platform/qt/tray/notify_icon_text.h"

#include <algorithm>

#include "platform/qt/text.h"

namespace kestrava {

namespace {

// See RFC 3629, section 3, for how UTF-8 marks the first byte of a character and those behind it.
constexpr unsigned kMostContinuations = 3;

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

std::size_t LengthOf(char firstByte) {
  const auto byte = static_cast<unsigned char>(firstByte);
  if (byte >= 0xF0) return 4;
  if (byte >= 0xE0) return 3;
  return byte >= 0xC0 ? 2 : 1;
}

std::string_view WithoutCutCharacter(std::string_view text) {
  std::size_t behind = 0;
  while (behind < text.size() && behind < kMostContinuations &&
         IsContinuation(text[text.size() - 1 - behind])) {
    ++behind;
  }
  if (behind == text.size()) return text;
  const std::size_t start = text.size() - 1 - behind;
  return LengthOf(text[start]) > behind + 1 ? text.substr(0, start) : text;
}

}  // namespace

QString NotifyIconText(std::string_view field) {
  const std::size_t end = field.find('\0');
  QString text =
      ToShown(end == std::string_view::npos ? WithoutCutCharacter(field) : field.substr(0, end));
  text.replace("\r\n", "\n");
  std::ranges::replace_if(
      text,
      [](QChar letter) { return letter.category() == QChar::Other_Control && letter != '\n'; },
      QChar(' '));
  return text;
}

}  // namespace kestrava
