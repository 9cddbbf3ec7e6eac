#include "platform/linux/linux_icmp.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <random>

#include "platform/linux/dotted_address.h"
#include "platform/linux/ping_program.h"

namespace kestrava {
namespace {

constexpr IcmpHandle kNoHandle = 0;
constexpr std::int32_t kNoRoundTrip = 10000;

/// The kind of socket is allowed, but there is none left to be had.
bool IsShortage(int error) {
  return error == EMFILE || error == ENFILE || error == ENOMEM || error == ENOBUFS;
}

}  // namespace

LinuxIcmp::LinuxIcmp() : identifier_(static_cast<std::uint16_t>(std::random_device()())) {}

IcmpHandle LinuxIcmp::IcmpCreateFile() {
  std::optional<EchoSocket> socket;
  for (const auto kind : {EchoSocketKind::Datagram, EchoSocketKind::Raw}) {
    if (kind < preferred_) continue;
    socket = EchoSocket::Open(kind);
    if (!socket && IsShortage(errno)) return kNoHandle;
    if (socket) {
      preferred_ = kind;
      break;
    }
  }
  if (!socket) preferred_ = EchoSocketKind::Datagram;
  open_.emplace(++lastHandle_, std::move(socket));
  return lastHandle_;
}

std::uint32_t LinuxIcmp::IcmpSendEcho(IcmpHandle handle, std::int32_t address,
                                      std::string_view data, const IP_OPTION_INFORMATION* options,
                                      EchoReply& reply, std::uint32_t replySize,
                                      std::uint32_t timeoutMilliseconds) {
  reply = EchoReply{};
  EchoOutcome outcome{kEchoGeneralFailure};
  const auto start = std::chrono::steady_clock::now();
  if (!options && data.size() <= sizeof reply.Data && replySize >= sizeof reply) {
    const EchoRequest request{std::bit_cast<std::uint32_t>(address), identifier_, ++sequence_,
                              data};
    outcome = Send(handle, request, std::chrono::milliseconds(timeoutMilliseconds));
  }
  reply.Status = outcome.status;
  if (outcome.status != kEchoSuccess) {
    reply.RoundTripTime = kNoRoundTrip;
    return 0;
  }
  const auto roundTrip = std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::steady_clock::now() - start);
  reply.Address = std::bit_cast<std::uint32_t>(address);
  reply.RoundTripTime =
      static_cast<std::int32_t>(std::min<std::int64_t>(roundTrip.count(), kNoRoundTrip - 1));
  reply.DataSize = static_cast<std::int16_t>(data.size());
  reply.Options.Ttl = outcome.timeToLive;
  std::ranges::copy(data, reply.Data);
  return 1;
}

EchoOutcome LinuxIcmp::Send(IcmpHandle handle, EchoRequest request,
                            std::chrono::milliseconds timeout) {
  if (!IsMachineAddress(request.address)) return {kEchoBadDestination};
  const auto found = open_.find(handle);
  if (found == open_.end()) return {kEchoNoResources};
  const auto& socket = found->second;
  if (!socket) {
    if (request.payload.size() > kLongestPingPayload) return {kEchoGeneralFailure};
    return SendEchoByPing(request, timeout);
  }
  return socket->Exchange(request, std::chrono::steady_clock::now() + timeout);
}

bool LinuxIcmp::IcmpCloseHandle(IcmpHandle handle) { return open_.erase(handle) == 1; }

}  // namespace kestrava
