#include "platform/linux/dotted_address.h"

#include <algorithm>
#include <charconv>
#include <netinet/in.h>

namespace kestrava {
namespace {

constexpr std::size_t kMostDigits = 3;

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

/// Takes one number off the front of `text`.
std::optional<std::uint8_t> TakePart(std::string_view& text) {
  const auto digits =
      static_cast<std::size_t>(std::ranges::find_if_not(text, IsDigit) - text.begin());
  std::uint8_t part = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + digits, part);
  if (digits > kMostDigits || error != std::errc()) return std::nullopt;
  text.remove_prefix(digits);
  return part;
}

}  // namespace

std::optional<std::uint32_t> ParseDottedAddress(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == text.npos) return std::nullopt;
  text = text.substr(first, text.find_last_not_of(' ') + 1 - first);

  std::uint32_t address = 0;
  for (int index = 0; index < 4; ++index) {
    if (index > 0) {
      if (!text.starts_with('.')) return std::nullopt;
      text.remove_prefix(1);
    }
    const auto part = TakePart(text);
    if (!part) return std::nullopt;
    address = address << 8 | *part;
  }
  if (!text.empty()) return std::nullopt;
  return htonl(address);
}

bool IsMachineAddress(std::uint32_t address) {
  const std::uint32_t number = ntohl(address);
  return number != INADDR_ANY && number != INADDR_BROADCAST && !IN_MULTICAST(number);
}

}  // namespace kestrava
