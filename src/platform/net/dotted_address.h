#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kestrava {

/// Reads four decimal numbers from 0 to 255 of one to three digits each, with dots between and
/// blanks around the whole allowed. Leading zeros don't make a number octal. Nothing else is an
/// address: a name isn't looked up. @return the address, in memory in network byte order.
std::optional<std::uint32_t> ParseDottedAddress(std::string_view text);

/// Whether `address` (in memory: network byte order) can be one machine's: not 0.0.0.0, not
/// 255.255.255.255, and no multicast address (RFC 1112: 224.0.0.0 to 239.255.255.255).
bool IsMachineAddress(std::uint32_t address);

}  // namespace kestrava
