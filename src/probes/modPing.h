#pragma once

#include <cstdint>
#include <string>

#include "probes/socket_layer.h"

namespace kestrava {

class IcmpService;
struct EchoReply;

/// The dotted text as the echo service wants it: in memory the four bytes stand in the order of the
/// text. Of a part outside 0 to 255 the low 8 bits count; fewer than four parts give 0.
/// @throws RuntimeError (9) for more than four parts, (13) for a part that is no whole number, (6)
///   for one that doesn't fit 32 bits.
std::int32_t DottedAddressToLong(const std::string& address);

/// One ICMP echo to one address.
class modPing {
 public:
  modPing(IcmpService& icmp, WindowsSockets& sockets, MessageBoxes& messageBoxes)
      : icmp_(icmp), socketLayer_(sockets, messageBoxes) {}

  /// Sends the echo, waits for its reply for at most 200 ms and fills `reply`, which the caller
  /// gives all zero. Both arguments must stay until the task has ended or gone.
  /// @return the round-trip time in milliseconds, or the status negated if no reply came.
  /// @throws what `DottedAddressToLong` throws, before anything is sent.
  Task<std::int32_t> SendEchoRequest(const std::string& connAddress, EchoReply& reply);

 private:
  IcmpService& icmp_;
  SocketLayer socketLayer_;
};

}  // namespace kestrava
