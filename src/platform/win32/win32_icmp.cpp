#include "platform/win32/win32_icmp.h"

#include <algorithm>
#include <bit>
#include <string>

#include "platform/net/dotted_address.h"
#include "platform/win32/owned_handle.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr IcmpHandle kNoHandle = 0;

/// The system ends an echo by itself when its time is up.
constexpr std::chrono::seconds kGrace(5);

/// Most machines nearby have answered by then, and a way through `HandleWaits` takes about as long.
constexpr std::chrono::milliseconds kShortWait(1);

/// IcmpSendEcho2 asks for room for the error message of a router (8 bytes) and for its own record
/// of the request.
constexpr std::size_t kReplyRoom =
    sizeof(ICMP_ECHO_REPLY) + sizeof(EchoReply::Data) + 8 + 2 * sizeof(void*);

/// A status of the echo service, or an error of the system's that is none.
std::int32_t StatusOf(DWORD error) {
  const bool isStatus = error >= kEchoNetUnreachable && error <= kEchoGeneralFailure;
  return isStatus ? static_cast<std::int32_t>(error) : kEchoGeneralFailure;
}

}  // namespace

/// Closed once the last echo that was sent by it has ended.
class Win32Icmp::Service {
 public:
  Service() : handle_(::IcmpCreateFile()) {}
  ~Service() {
    if (*this) ::IcmpCloseHandle(handle_);
  }
  Service(const Service&) = delete;
  Service& operator=(const Service&) = delete;

  explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Handle() const { return handle_; }

 private:
  HANDLE handle_;
};

struct Win32Icmp::Exchange {
  /// Returns when the echo has ended, after `longest` at the latest. @return whether it has.
  bool EndsWithin(std::chrono::milliseconds longest) const {
    return WaitForSingleObject(event.get(), static_cast<DWORD>(longest.count())) == WAIT_OBJECT_0;
  }
  bool HasEnded() const { return EndsWithin(std::chrono::milliseconds(0)); }

  std::shared_ptr<Service> service;
  std::string data;
  alignas(ICMP_ECHO_REPLY) std::array<std::byte, kReplyRoom> reply{};
  OwnedHandle event{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

Win32Icmp::Win32Icmp(HandleWaits& waits) : waits_(waits) {}

/// What the system may still write into goes with the process.
Win32Icmp::~Win32Icmp() {
  DropEnded();
  for (auto& exchange : underWay_) new std::shared_ptr<Exchange>(std::move(exchange));
}

IcmpHandle Win32Icmp::IcmpCreateFile() {
  auto service = std::make_shared<Service>();
  if (!*service) return kNoHandle;
  open_.emplace(++lastHandle_, std::move(service));
  return lastHandle_;
}

Task<std::uint32_t> Win32Icmp::IcmpSendEcho(IcmpHandle handle, std::int32_t address,
                                            std::string_view data,
                                            const IP_OPTION_INFORMATION* options, EchoReply& reply,
                                            std::uint32_t replySize,
                                            std::uint32_t timeoutMilliseconds) {
  reply = EchoReply{};
  reply.RoundTripTime = kRoundTripWithoutReply;
  const auto fail = [&reply](std::int32_t status) {
    reply.Status = status;
    return 0U;
  };
  if (options || data.size() > sizeof reply.Data || replySize < sizeof reply) {
    co_return fail(kEchoGeneralFailure);
  }
  const auto machine = std::bit_cast<std::uint32_t>(address);
  if (!IsMachineAddress(machine)) co_return fail(kEchoBadDestination);
  const auto found = open_.find(handle);
  if (found == open_.end()) co_return fail(kEchoNoResources);

  DropEnded();
  const auto exchange = std::make_shared<Exchange>();
  if (!exchange->event) co_return fail(kEchoNoResources);
  exchange->service = found->second;
  exchange->data = data;
  underWay_.push_back(exchange);
  const DWORD sent = IcmpSendEcho2(exchange->service->Handle(), exchange->event.get(), nullptr,
                                   nullptr, machine, exchange->data.data(),
                                   static_cast<WORD>(data.size()), nullptr, exchange->reply.data(),
                                   static_cast<DWORD>(exchange->reply.size()), timeoutMilliseconds);
  if (sent == 0 && GetLastError() != ERROR_IO_PENDING) {
    const DWORD error = GetLastError();
    std::erase(underWay_, exchange);
    co_return fail(StatusOf(error));
  }
  if (!exchange->EndsWithin(kShortWait)) {
    co_await waits_.Signalled(exchange->event.get(),
                              std::chrono::milliseconds(timeoutMilliseconds) + kGrace);
    if (!exchange->HasEnded()) co_return fail(kEchoTimedOut);
  }
  std::erase(underWay_, exchange);

  const DWORD replies =
      IcmpParseReplies(exchange->reply.data(), static_cast<DWORD>(exchange->reply.size()));
  if (replies == 0) co_return fail(StatusOf(GetLastError()));
  const auto& native = *reinterpret_cast<const ICMP_ECHO_REPLY*>(exchange->reply.data());
  if (native.Status != IP_SUCCESS) co_return fail(StatusOf(native.Status));
  const auto size = std::min<std::size_t>(native.DataSize, sizeof reply.Data);
  // Another's data, or none, is no answer to this request.
  if (!native.Data || std::string_view(static_cast<const char*>(native.Data), size) != data) {
    co_return fail(kEchoGeneralFailure);
  }
  reply.Address = native.Address;
  reply.Status = kEchoSuccess;
  reply.RoundTripTime = static_cast<std::int32_t>(
      std::min<std::uint32_t>(native.RoundTripTime, kRoundTripWithoutReply - 1));
  reply.DataSize = static_cast<std::int16_t>(size);
  reply.Options.Ttl = native.Options.Ttl;
  reply.Options.Tos = native.Options.Tos;
  std::ranges::copy(data, reply.Data);
  co_return 1;
}

bool Win32Icmp::IcmpCloseHandle(IcmpHandle handle) { return open_.erase(handle) == 1; }

void Win32Icmp::DropEnded() {
  std::erase_if(underWay_, [](const auto& exchange) { return exchange->HasEnded(); });
}

}  // namespace kestrava
