#pragma once

#include <cstddef>
#include <cstdint>

namespace kestrava {

/// What a socket layer says of itself, 400 bytes.
struct WSADATA {
  std::uint16_t wVersion;  ///< low byte the major version, high byte the minor version
  std::uint16_t wHighVersion;
  char szDescription[257];
  char szSystemStatus[129];
  std::int16_t iMaxSockets;  ///< how many sockets the program may have open
  std::uint16_t iMaxUdpDg;
  std::uint32_t lpVendorInfo;
};
static_assert(offsetof(WSADATA, wVersion) == 0);
static_assert(offsetof(WSADATA, wHighVersion) == 2);
static_assert(offsetof(WSADATA, szDescription) == 4);
static_assert(offsetof(WSADATA, szSystemStatus) == 261);
static_assert(offsetof(WSADATA, iMaxSockets) == 390);
static_assert(offsetof(WSADATA, iMaxUdpDg) == 392);
static_assert(offsetof(WSADATA, lpVendorInfo) == 396);
static_assert(sizeof(WSADATA) == 400);

/// The system's socket layer, which a program starts before its first socket and ends after its
/// last.
class WindowsSockets {
 public:
  virtual ~WindowsSockets() = default;

  /// Asks for `version` (low byte major, high byte minor) and fills `data`, which the caller gives
  /// all zero. @return 0 for success.
  virtual int WSAStartup(std::uint16_t version, WSADATA& data) = 0;

  /// Ends what one `WSAStartup` started. @return 0 for success.
  virtual int WSACleanup() = 0;
};

}  // namespace kestrava
