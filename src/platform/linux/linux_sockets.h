#pragma once

#include "platform/windows_sockets.h"

namespace kestrava {

/// This system's sockets need no start: they are there. So a start always succeeds, as version 1.1
/// with as many sockets as the program may open files, and only an end without a start fails.
class LinuxSockets final : public WindowsSockets {
 public:
  LinuxSockets();

  int WSAStartup(std::uint16_t version, WSADATA& data) override;
  int WSACleanup() override;

 private:
  std::int16_t mostSockets_;
  int starts_ = 0;
};

}  // namespace kestrava
