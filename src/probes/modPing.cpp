#include "probes/modPing.h"

#include <array>
#include <limits>
#include <string_view>
#include <tuple>

#include "general/conversion.h"
#include "platform/icmp.h"
#include "platform/runtime_error.h"

namespace kestrava {

namespace {

constexpr std::string_view kPayload = "Echo This";
constexpr std::uint32_t kTimeoutMilliseconds = 200;
constexpr std::size_t kParts = 4;

std::int32_t Negated(std::int32_t number) {
  if (number == std::numeric_limits<std::int32_t>::min()) {
    throw RuntimeError(kErrorOverflow, "the echo status can't be negated");
  }
  return -number;
}

}  // namespace

std::int32_t DottedAddressToLong(const std::string& address) {
  std::array<std::string_view, kParts> parts;
  std::size_t count = 0;
  const auto store = [&](std::string_view part) {
    if (count == kParts) throw RuntimeError(kErrorIndexOutOfRange, "more than four address parts");
    parts[count++] = part;
  };
  std::string_view rest = address;
  for (std::size_t dot = rest.find('.'); dot != std::string_view::npos; dot = rest.find('.')) {
    store(rest.substr(0, dot));
    rest.remove_prefix(dot + 1);
  }
  store(rest);
  if (count != kParts) return 0;

  std::uint32_t bytes = 0;
  for (std::size_t part = kParts; part-- > 0;) {
    const std::int32_t number = ToWholeNumber(parts[part]);
    bytes = bytes << 8 | (static_cast<std::uint32_t>(number) & 0xFF);
  }
  return static_cast<std::int32_t>(bytes);
}

Task<std::int32_t> modPing::SendEchoRequest(const std::string& connAddress, EchoReply& reply) {
  const std::int32_t address = DottedAddressToLong(connAddress);
  // The echo goes out, and the layer is closed, whatever the layer says: the user has been told.
  std::ignore = co_await socketLayer_.OpenSocketLayer();
  const IcmpHandle handle = icmp_.IcmpCreateFile();
  const std::uint32_t replies = co_await icmp_.IcmpSendEcho(
      handle, address, kPayload, nullptr, reply, sizeof(EchoReply), kTimeoutMilliseconds);
  const std::int32_t result = replies != 0 ? reply.RoundTripTime : Negated(reply.Status);
  icmp_.IcmpCloseHandle(handle);
  std::ignore = co_await socketLayer_.CloseSocketLayer();
  co_return result;
}

}  // namespace kestrava
