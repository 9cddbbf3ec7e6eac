#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "platform/icmp.h"

namespace kestrava {

/// One echo request, and so what its reply must match. Numbers are in host byte order.
struct EchoRequest {
  std::uint32_t address;  ///< in memory: network byte order
  /// Nothing where the system puts the identifier in, and hands on only what carries it.
  std::optional<std::uint16_t> identifier;
  std::uint16_t sequence;
  std::string_view payload;
};

/// What came of one echo.
struct EchoOutcome {
  EchoStatus status;
  std::uint8_t timeToLive = 0;  ///< of the reply; 0 where it isn't known
};

/// Puts the ICMP message of the request (RFC 792, "Echo or Echo Reply Message") into `room`, which
/// must hold the payload and 8 bytes more. @return the part of `room` that it takes.
std::span<const std::uint8_t> BuildEchoRequest(const EchoRequest& request,
                                               std::span<std::uint8_t> room);

/// Whether the ICMP message that `sender` (in memory: network byte order) sent is the reply to
/// `request`: type, code, checksum, identifier, sequence, payload and sender all match.
bool IsReplyTo(const EchoRequest& request, std::uint32_t sender,
               std::span<const std::uint8_t> message);

/// Whether an ICMP error is about `request`: `quoted` is the ICMP message that the error quotes,
/// of which 8 bytes are certain (RFC 792), and `destination` is where that message went.
bool IsErrorAbout(const EchoRequest& request, std::uint32_t destination,
                  std::span<const std::uint8_t> quoted);

/// What an ICMP error of this type and code (RFC 792, RFC 1812 section 5.2.7.1) says of the echo;
/// nothing for a message that isn't the end of it, such as a redirect.
std::optional<EchoStatus> StatusOfIcmpError(std::uint8_t type, std::uint8_t code);

/// An IPv4 packet (RFC 791) taken apart.
struct Ipv4Packet {
  std::uint8_t timeToLive;
  std::span<const std::uint8_t> message;  ///< what follows the header; points into the packet
};

/// Nothing if the bytes can't hold the header that they announce.
std::optional<Ipv4Packet> OpenIpv4Packet(std::span<const std::uint8_t> packet);

}  // namespace kestrava
