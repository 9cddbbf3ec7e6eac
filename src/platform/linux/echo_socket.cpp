#include "platform/linux/echo_socket.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <linux/errqueue.h>
#include <linux/icmp.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace kestrava {

namespace {

/// Longer than the longest IPv4 header (60 bytes) with the longest message that this system sends,
/// so that a longer packet shows by its length.
constexpr std::size_t kPacketSize = 512;

/// Read at a time, so that a flood of packets that belong to others doesn't hold the loop up.
constexpr int kMostPackets = 256;

EchoStatus StatusOfSendError(int error) {
  switch (error) {
    case ENETUNREACH:
    case ENETDOWN:
      return kEchoNetUnreachable;
    case EHOSTUNREACH:
    case EHOSTDOWN:
      return kEchoHostUnreachable;
    case EMSGSIZE:
      return kEchoPacketTooBig;
    case ENOBUFS:
    case ENOMEM:
      return kEchoNoResources;
    case EACCES:  // a network's broadcast address, ip(7)
      return kEchoBadDestination;
    default:
      return kEchoGeneralFailure;
  }
}

std::optional<EchoStatus> StatusOfQueuedError(msghdr& message) {
  for (cmsghdr* header = CMSG_FIRSTHDR(&message); header; header = CMSG_NXTHDR(&message, header)) {
    if (header->cmsg_level != IPPROTO_IP || header->cmsg_type != IP_RECVERR) continue;
    sock_extended_err error;
    std::memcpy(&error, CMSG_DATA(header), sizeof error);
    if (error.ee_origin == SO_EE_ORIGIN_ICMP) {
      return StatusOfIcmpError(error.ee_type, error.ee_code);
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<EchoSocket> EchoSocket::Open(EchoSocketKind kind) {
  const int type = kind == EchoSocketKind::Datagram ? SOCK_DGRAM : SOCK_RAW;
  FileDescriptor socket(::socket(AF_INET, type | SOCK_CLOEXEC, IPPROTO_ICMP));
  if (!socket) return std::nullopt;
  const int on = 1;
  setsockopt(socket.Number(), IPPROTO_IP, IP_RECVERR, &on, sizeof on);
  if (kind == EchoSocketKind::Raw) {
    // Keeps the other ICMP traffic of this machine out, its own requests over loopback among it.
    const icmp_filter filter{~(1U << ICMP_ECHOREPLY)};
    setsockopt(socket.Number(), SOL_RAW, ICMP_FILTER, &filter, sizeof filter);
  }
  return EchoSocket(std::move(socket), kind);
}

Task<EchoOutcome> EchoSocket::Exchange(EchoRequest request, Deadline deadline,
                                       DescriptorWaits& waits) const {
  if (kind_ == EchoSocketKind::Datagram) request.identifier.reset();
  if (const int error = Send(request)) return EchoOutcome{StatusOfSendError(error)};
  // This machine's own addresses have answered by now.
  if (const auto outcome = TakeOutcome(request)) return *outcome;
  return AwaitOutcome(request, deadline, waits);
}

Task<EchoOutcome> EchoSocket::AwaitOutcome(EchoRequest request, Deadline deadline,
                                           DescriptorWaits& waits) const {
  for (bool inTime = true; inTime;) {
    inTime = co_await waits.Readable(socket_.Number(), deadline);
    // Also when time is up: the program may have been kept from looking until now.
    if (const auto outcome = TakeOutcome(request)) co_return *outcome;
  }
  co_return EchoOutcome{kEchoTimedOut};
}

/// Reads what waits, up to what tells how `request` ended.
std::optional<EchoOutcome> EchoSocket::TakeOutcome(const EchoRequest& request) const {
  for (int packets = 0; packets < kMostPackets; ++packets) {
    std::array<std::uint8_t, kPacketSize> packet;
    sockaddr_in sender{};
    socklen_t senderSize = sizeof sender;
    const ssize_t size = recvfrom(socket_.Number(), packet.data(), packet.size(), MSG_DONTWAIT,
                                  reinterpret_cast<sockaddr*>(&sender), &senderSize);
    if (size >= 0) {
      const auto received = std::span(packet).first(static_cast<std::size_t>(size));
      if (const auto outcome = Match(request, sender.sin_addr.s_addr, received)) return outcome;
    } else if (errno == EAGAIN) {
      return std::nullopt;
    } else if (errno != EINTR) {
      if (const auto status = TakeError(request)) return EchoOutcome{*status};
    }
  }
  return std::nullopt;
}

/// @return 0, or the number of the error.
int EchoSocket::Send(const EchoRequest& request) const {
  std::array<std::uint8_t, kPacketSize> room;
  const auto message = BuildEchoRequest(request, room);
  sockaddr_in destination{};
  destination.sin_family = AF_INET;
  destination.sin_addr.s_addr = request.address;
  const ssize_t sent = sendto(socket_.Number(), message.data(), message.size(), 0,
                              reinterpret_cast<const sockaddr*>(&destination), sizeof destination);
  return sent < 0 ? errno : 0;
}

std::optional<EchoOutcome> EchoSocket::Match(const EchoRequest& request, std::uint32_t sender,
                                             std::span<const std::uint8_t> packet) const {
  std::uint8_t timeToLive = 0;
  if (kind_ == EchoSocketKind::Raw) {
    const auto opened = OpenIpv4Packet(packet);
    if (!opened) return std::nullopt;
    packet = opened->message;
    timeToLive = opened->timeToLive;
  }
  if (!IsReplyTo(request, sender, packet)) return std::nullopt;
  return EchoOutcome{kEchoSuccess, timeToLive};
}

/// Empties the socket's queue of errors up to the first one about `request`.
std::optional<EchoStatus> EchoSocket::TakeError(const EchoRequest& request) const {
  for (;;) {
    std::array<std::uint8_t, kPacketSize> quoted;
    alignas(cmsghdr) std::array<char, 256> control;
    sockaddr_in destination{};
    iovec part{quoted.data(), quoted.size()};
    msghdr message{};
    message.msg_name = &destination;
    message.msg_namelen = sizeof destination;
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    const ssize_t size = recvmsg(socket_.Number(), &message, MSG_ERRQUEUE | MSG_DONTWAIT);
    if (size < 0) return std::nullopt;
    const auto bytes = std::span(quoted).first(static_cast<std::size_t>(size));
    if (!IsErrorAbout(request, destination.sin_addr.s_addr, bytes)) continue;
    if (const auto status = StatusOfQueuedError(message)) return status;
  }
}

}  // namespace kestrava
