#include "platform/linux/linux_icmp.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <random>

#include "platform/linux/ping_program.h"
#include "platform/net/dotted_address.h"

namespace kestrava {

namespace {

constexpr IcmpHandle kNoHandle = 0;

/// The kind of socket is allowed, but there is none left to be had.
bool IsShortage(int error) {
  return error == EMFILE || error == ENFILE || error == ENOMEM || error == ENOBUFS;
}

}  // namespace

/// Both numbers start where nobody outside can guess: a blind sender would have to hit them.
LinuxIcmp::LinuxIcmp(DescriptorWaits& waits)
    : waits_(waits),
      identifier_(static_cast<std::uint16_t>(std::random_device()())),
      sequence_(static_cast<std::uint16_t>(std::random_device()())) {}

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
  open_.push_back(
      {++lastHandle_, socket ? std::make_unique<EchoSocket>(std::move(*socket)) : nullptr});
  return lastHandle_;
}

Task<std::uint32_t> LinuxIcmp::IcmpSendEcho(IcmpHandle handle, std::int32_t address,
                                            std::string_view data,
                                            const IP_OPTION_INFORMATION* options, EchoReply& reply,
                                            std::uint32_t replySize,
                                            std::uint32_t timeoutMilliseconds) {
  reply = EchoReply{};
  EchoOutcome outcome{kEchoGeneralFailure};
  const auto start = std::chrono::steady_clock::now();
  if (!options && data.size() <= sizeof reply.Data && replySize >= sizeof reply) {
    const EchoRequest request{std::bit_cast<std::uint32_t>(address), identifier_, ++sequence_,
                              data};
    outcome = co_await Send(handle, request, start, std::chrono::milliseconds(timeoutMilliseconds));
  }
  reply.Status = outcome.status;
  if (outcome.status != kEchoSuccess) {
    reply.RoundTripTime = kRoundTripWithoutReply;
    co_return 0;
  }
  const auto roundTrip = std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::steady_clock::now() - start);
  reply.Address = std::bit_cast<std::uint32_t>(address);
  reply.RoundTripTime = static_cast<std::int32_t>(
      std::min<std::int64_t>(roundTrip.count(), kRoundTripWithoutReply - 1));
  reply.DataSize = static_cast<std::int16_t>(data.size());
  reply.Options.Ttl = outcome.timeToLive;
  std::ranges::copy(data, reply.Data);
  co_return 1;
}

Task<EchoOutcome> LinuxIcmp::Send(IcmpHandle handle, EchoRequest request,
                                  std::chrono::steady_clock::time_point start,
                                  std::chrono::milliseconds timeout) {
  if (!IsMachineAddress(request.address)) return EchoOutcome{kEchoBadDestination};
  const auto found = std::ranges::find(open_, handle, &Open::handle);
  if (found == open_.end()) return EchoOutcome{kEchoNoResources};
  if (found->socket) {
    return found->socket->Exchange(request, start + timeout, waits_);
  }
  if (request.payload.size() > kLongestPingPayload) return EchoOutcome{kEchoGeneralFailure};
  return SendEchoByPing(request, timeout, waits_);
}

bool LinuxIcmp::IcmpCloseHandle(IcmpHandle handle) {
  return std::erase_if(open_, [handle](const Open& open) { return open.handle == handle; }) == 1;
}

}  // namespace kestrava
