#pragma once

#include <string>

#include "platform/task.h"

namespace kestrava {

class EventLoop;
class modPing;
class MsRdpClient2;

/// Asks of one address: does anything answer there? First one echo, and where that brings no
/// answer, a Remote Desktop connect that is dropped again at once.
class ConnectionProbe {
 public:
  ConnectionProbe(modPing& ping, MsRdpClient2& rdp, EventLoop& eventLoop)
      : ping_(ping), rdp_(rdp), eventLoop_(eventLoop) {}

  /// @param connAddress the dotted address as it stands in the table. It must stay until the task
  ///   has ended or gone.
  /// @return a decimal number if the echo was answered, "3389" if the Remote Desktop connect
  ///   succeeded, and any other text, the reason, if neither did. Errors never leave the probe.
  Task<std::string> CheckServerConnection(const std::string& connAddress);

 private:
  modPing& ping_;
  MsRdpClient2& rdp_;
  EventLoop& eventLoop_;
};

}  // namespace kestrava
