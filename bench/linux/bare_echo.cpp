#include "bare_echo.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <cstring>
#include <netinet/in.h>
#include <netinet/ip_icmp.h>
#include <string_view>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>

namespace kestrava {

void EchoBarely(const std::string& address) {
  constexpr std::string_view kPayload = "Echo This";
  std::array<char, sizeof(icmphdr) + kPayload.size()> request{ICMP_ECHO};
  std::memcpy(request.data() + sizeof(icmphdr), kPayload.data(), kPayload.size());
  sockaddr_in destination{};
  destination.sin_family = AF_INET;
  destination.sin_addr.s_addr = inet_addr(address.c_str());
  std::array<char, 512> reply;

  const int handle = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, IPPROTO_ICMP);
  const bool answered =
      sendto(handle, request.data(), request.size(), 0,
             reinterpret_cast<const sockaddr*>(&destination), sizeof destination) >= 0 &&
      recv(handle, reply.data(), reply.size(), 0) >= 0;
  const int error = errno;
  close(handle);
  if (!answered) throw std::system_error(error, std::generic_category(), "a bare echo");
}

}  // namespace kestrava
