#include "platform/win32/win32_sockets.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <span>

#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

/// The text, cut to its room, with its NUL.
void CopyText(const char* text, std::span<char> room) {
  const std::size_t length = std::min(std::strlen(text), room.size() - 1);
  std::copy_n(text, length, room.begin());
  room[length] = '\0';
}

}  // namespace

int Win32Sockets::WSAStartup(std::uint16_t version, WSADATA& data) {
  ::WSADATA native{};
  const int result = ::WSAStartup(version, &native);
  data.wVersion = native.wVersion;
  data.wHighVersion = native.wHighVersion;
  CopyText(native.szDescription, data.szDescription);
  CopyText(native.szSystemStatus, data.szSystemStatus);
  data.iMaxSockets = std::bit_cast<std::int16_t>(native.iMaxSockets);
  data.iMaxUdpDg = native.iMaxUdpDg;
  return result;
}

int Win32Sockets::WSACleanup() { return ::WSACleanup(); }

}  // namespace kestrava
