#pragma once

#include "platform/windows_sockets.h"

namespace kestrava {

/// The system's own socket layer.
class Win32Sockets final : public WindowsSockets {
 public:
  int WSAStartup(std::uint16_t version, WSADATA& data) override;
  int WSACleanup() override;
};

}  // namespace kestrava
