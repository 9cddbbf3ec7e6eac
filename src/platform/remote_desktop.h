#pragma once

#include <cstdint>
#include <string>

#include "platform/runtime_error.h"

namespace kestrava {

/// The error of a peer that took the connection and dropped it before it had answered. Worth one
/// more attempt.
inline constexpr ErrorNumber kErrorPeerDropped{15423};

/// The Remote Desktop client control: one connection at a time, used only to see whether it comes
/// about. Each member may throw `RuntimeError`.
class MsRdpClient2 {
 public:
  virtual ~MsRdpClient2() = default;

  /// 1 when a connection stands, 0 when none stands and none is under way, 2 while connecting.
  /// Changes while events are pumped.
  /// @throws RuntimeError (15423), once, when the peer dropped the connection before its answer.
  virtual std::int16_t Connected() = 0;

  /// The machine for the next `Connect`: a dotted IPv4 address. Names are not looked up.
  virtual void SetServer(const std::string& server) = 0;

  /// Starts an attempt and returns at once; an attempt that is under way is dropped.
  /// @throws RuntimeError (5) if the server is no dotted IPv4 address of a machine.
  virtual void Connect() = 0;

  /// Drops the connection and returns at once; `Connected` reaches 0 while events are pumped.
  virtual void Disconnect() = 0;
};

}  // namespace kestrava
