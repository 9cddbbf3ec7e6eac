#include "bare_echo.h"

#include <array>
#include <string_view>
#include <system_error>

#include "platform/win32/windows_api.h"

namespace kestrava {

void EchoBarely(const std::string& address) {
  std::string_view payload = "Echo This";
  alignas(ICMP_ECHO_REPLY) std::array<char, sizeof(ICMP_ECHO_REPLY) + 256> reply;
  const HANDLE handle = ::IcmpCreateFile();
  constexpr DWORD kMilliseconds = 200;
  const DWORD replies = ::IcmpSendEcho(
      handle, inet_addr(address.c_str()), const_cast<char*>(payload.data()),
      static_cast<WORD>(payload.size()), nullptr, reply.data(), DWORD{reply.size()}, kMilliseconds);
  const DWORD error = GetLastError();
  ::IcmpCloseHandle(handle);
  if (replies == 0) {
    throw std::system_error(static_cast<int>(error), std::system_category(), "a bare echo");
  }
}

}  // namespace kestrava
