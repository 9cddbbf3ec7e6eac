#pragma once

#include <string>

namespace kestrava {

/// One echo with nothing around it: opens an ICMP datagram socket, sends a request to `address` (in
/// memory: network byte order), takes the next packet for its answer and closes the socket.
/// @throws std::system_error where one of these fails.
void EchoBarely(const std::string& address);

}  // namespace kestrava
