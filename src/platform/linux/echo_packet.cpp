#include "platform/linux/echo_packet.h"

#include <algorithm>
#include <netinet/ip_icmp.h>

namespace kestrava {

namespace {

/// Type, code, checksum, identifier and sequence.
constexpr std::size_t kHeaderSize = 8;

void PutNumber(std::span<std::uint8_t> bytes, std::size_t offset, std::uint16_t number) {
  bytes[offset] = static_cast<std::uint8_t>(number >> 8);
  bytes[offset + 1] = static_cast<std::uint8_t>(number & 0xFF);
}

std::uint16_t NumberAt(std::span<const std::uint8_t> bytes, std::size_t offset) {
  return static_cast<std::uint16_t>(bytes[offset] << 8 | bytes[offset + 1]);
}

/// The Internet checksum (RFC 1071). Over a message that carries its right checksum it is 0.
std::uint16_t Checksum(std::span<const std::uint8_t> bytes) {
  std::uint32_t sum = 0;
  for (std::size_t offset = 0; offset + 1 < bytes.size(); offset += 2) {
    sum += NumberAt(bytes, offset);
  }
  if (bytes.size() % 2 != 0) sum += static_cast<std::uint32_t>(bytes.back()) << 8;
  while (sum >> 16 != 0) sum = (sum & 0xFFFF) + (sum >> 16);
  return static_cast<std::uint16_t>(~sum & 0xFFFF);
}

bool HeaderMatches(const EchoRequest& request, std::uint8_t type,
                   std::span<const std::uint8_t> message) {
  return message.size() >= kHeaderSize && message[0] == type && message[1] == 0 &&
         (!request.identifier || NumberAt(message, 4) == *request.identifier) &&
         NumberAt(message, 6) == request.sequence;
}

EchoStatus StatusOfUnreachable(std::uint8_t code) {
  switch (code) {
    case ICMP_NET_UNREACH:
    case ICMP_NET_UNKNOWN:
    case ICMP_NET_ANO:
    case ICMP_NET_UNR_TOS:
      return kEchoNetUnreachable;
    case ICMP_HOST_UNREACH:
    case ICMP_HOST_UNKNOWN:
    case ICMP_HOST_ANO:
    case ICMP_HOST_UNR_TOS:
    case ICMP_PKT_FILTERED:
      return kEchoHostUnreachable;
    case ICMP_PROT_UNREACH:
      return kEchoProtocolUnreachable;
    case ICMP_PORT_UNREACH:
      return kEchoPortUnreachable;
    case ICMP_FRAG_NEEDED:
      return kEchoPacketTooBig;
    default:
      return kEchoGeneralFailure;
  }
}

}  // namespace

std::span<const std::uint8_t> BuildEchoRequest(const EchoRequest& request,
                                               std::span<std::uint8_t> room) {
  const auto message = room.first(kHeaderSize + request.payload.size());
  std::ranges::fill(message, std::uint8_t{0});
  message[0] = ICMP_ECHO;
  PutNumber(message, 4, request.identifier.value_or(0));
  PutNumber(message, 6, request.sequence);
  std::ranges::copy(request.payload, message.begin() + kHeaderSize);
  PutNumber(message, 2, Checksum(message));
  return message;
}

bool IsReplyTo(const EchoRequest& request, std::uint32_t sender,
               std::span<const std::uint8_t> message) {
  if (sender != request.address || !HeaderMatches(request, ICMP_ECHOREPLY, message)) return false;
  return std::ranges::equal(message.subspan(kHeaderSize), request.payload, {}, {},
                            [](char byte) { return static_cast<std::uint8_t>(byte); }) &&
         Checksum(message) == 0;
}

bool IsErrorAbout(const EchoRequest& request, std::uint32_t destination,
                  std::span<const std::uint8_t> quoted) {
  return destination == request.address && HeaderMatches(request, ICMP_ECHO, quoted);
}

std::optional<EchoStatus> StatusOfIcmpError(std::uint8_t type, std::uint8_t code) {
  switch (type) {
    case ICMP_DEST_UNREACH:
      return StatusOfUnreachable(code);
    case ICMP_TIME_EXCEEDED:
      return code == ICMP_EXC_TTL ? kEchoTtlExpiredTransit : kEchoTtlExpiredReassembly;
    case ICMP_PARAMETERPROB:
      return kEchoParameterProblem;
    default:
      return std::nullopt;
  }
}

std::optional<Ipv4Packet> OpenIpv4Packet(std::span<const std::uint8_t> packet) {
  constexpr std::size_t kShortestHeader = 20;
  if (packet.size() < kShortestHeader) return std::nullopt;
  const std::size_t headerSize = std::size_t{4} * (packet[0] & 0x0F);
  if (headerSize < kShortestHeader || headerSize > packet.size()) return std::nullopt;
  return Ipv4Packet{packet[8], packet.subspan(headerSize)};
}

}  // namespace kestrava
