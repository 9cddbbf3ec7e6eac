#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/task.h"

namespace kestrava {

/// IP options of an echo, 8 bytes.
struct IP_OPTION_INFORMATION {
  std::uint8_t Ttl;
  std::uint8_t Tos;
  std::uint8_t Flags;
  std::uint8_t OptionsSize;
  std::uint32_t OptionsData;
};
static_assert(sizeof(IP_OPTION_INFORMATION) == 8);

/// In place of a round trip in milliseconds: no reply came. Every reply's is less.
inline constexpr std::int32_t kRoundTripWithoutReply = 10000;

#pragma pack(push, 2)
/// The reply record of one echo: 28 bytes of header and 250 bytes for the echoed data.
struct EchoReply {
  std::uint32_t Address;       ///< the machine that answered, network byte order in memory
  std::int32_t Status;         ///< 0, or a code of `EchoStatusText`
  std::int32_t RoundTripTime;  ///< milliseconds, or `kRoundTripWithoutReply`
  std::int16_t DataSize;       ///< bytes of echoed data; 0 where no reply came
  std::uint16_t Reserved;
  std::uint32_t DataPointer;      ///< unused: the data stands in `Data`
  IP_OPTION_INFORMATION Options;  ///< of the reply
  char Data[250];                 ///< the echoed data
};
#pragma pack(pop)
static_assert(offsetof(EchoReply, Address) == 0);
static_assert(offsetof(EchoReply, Status) == 4);
static_assert(offsetof(EchoReply, RoundTripTime) == 8);
static_assert(offsetof(EchoReply, DataSize) == 12);
static_assert(offsetof(EchoReply, Reserved) == 14);
static_assert(offsetof(EchoReply, DataPointer) == 16);
static_assert(offsetof(EchoReply, Options) == 20);
static_assert(offsetof(EchoReply, Data) == 28);
static_assert(sizeof(EchoReply) == 278);

/// Status codes that an echo service gives. Values from 11001 up are the IP status codes of the
/// Windows IP Helper API (IP_STATUS in ipexport.h, IP_STATUS_BASE 11000).
enum EchoStatus : std::int32_t {
  kEchoSuccess = 0,
  kEchoNetUnreachable = 11002,
  kEchoHostUnreachable = 11003,
  kEchoProtocolUnreachable = 11004,
  kEchoPortUnreachable = 11005,
  kEchoNoResources = 11006,
  kEchoPacketTooBig = 11009,
  kEchoTimedOut = 11010,
  kEchoTtlExpiredTransit = 11013,
  kEchoTtlExpiredReassembly = 11014,
  kEchoParameterProblem = 11015,
  kEchoBadDestination = 11018,
  kEchoGeneralFailure = 11050,
};

using IcmpHandle = std::intptr_t;

/// The echo service.
class IcmpService {
 public:
  virtual ~IcmpService() = default;

  /// A handle for one echo. A handle that couldn't be had makes `IcmpSendEcho` fail.
  virtual IcmpHandle IcmpCreateFile() = 0;

  /// Sends one echo request with `data` to `address` (in memory: network byte order) and waits for
  /// the reply, at most `timeoutMilliseconds`, while the event loop goes on. `options` is nullptr
  /// for none; `replySize` is the size of `reply` in bytes. What the arguments refer to, and the
  /// handle, must stay until the task has ended or gone.
  /// @return non-zero if a reply came: `Status` 0, `RoundTripTime` in milliseconds and `DataSize`
  ///   of 1 or more. 0 if none came: `Status` says why, `RoundTripTime` is `kRoundTripWithoutReply`
  ///   and `DataSize` 0.
  virtual Task<std::uint32_t> IcmpSendEcho(IcmpHandle handle, std::int32_t address,
                                           std::string_view data,
                                           const IP_OPTION_INFORMATION* options, EchoReply& reply,
                                           std::uint32_t replySize,
                                           std::uint32_t timeoutMilliseconds) = 0;

  /// Gives the handle back.
  virtual bool IcmpCloseHandle(IcmpHandle handle) = 0;
};

}  // namespace kestrava
