#pragma once

#include <string>

namespace kestrava {

/// One echo with nothing around it, to a dotted address. On Linux it opens an ICMP datagram socket,
/// sends a request, takes the next packet for its answer and closes the socket; on Windows it is
/// the echo service's call with a fresh handle.
/// @throws std::system_error where one of these fails.
void EchoBarely(const std::string& address);

}  // namespace kestrava
