#include "platform/net/dotted_address.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>

#include "platform/ascii.h"

namespace kestrava {

namespace {

constexpr std::size_t kMostDigits = 3;

/// The four numbers in the order in which they are written, which is network byte order.
using Parts = std::array<std::uint8_t, 4>;

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
  text = WithoutBlanks(text);
  Parts address{};
  for (std::size_t index = 0; index < address.size(); ++index) {
    if (index > 0) {
      if (!text.starts_with('.')) return std::nullopt;
      text.remove_prefix(1);
    }
    const auto part = TakePart(text);
    if (!part) return std::nullopt;
    address[index] = *part;
  }
  if (!text.empty()) return std::nullopt;
  return std::bit_cast<std::uint32_t>(address);
}

bool IsMachineAddress(std::uint32_t address) {
  constexpr Parts kNone{0, 0, 0, 0};
  constexpr Parts kAll{255, 255, 255, 255};
  constexpr int kMulticast = 0xE;  // the four highest bits
  const auto parts = std::bit_cast<Parts>(address);
  return parts != kNone && parts != kAll && parts[0] >> 4 != kMulticast;
}

}  // namespace kestrava
