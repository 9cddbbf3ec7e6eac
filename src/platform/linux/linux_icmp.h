#pragma once

#include <memory>
#include <vector>

#include "platform/icmp.h"
#include "platform/linux/descriptor_waits.h"
#include "platform/linux/echo_socket.h"

namespace kestrava {

/// The echo service over an ICMP datagram socket; where the system refuses that, over a raw socket;
/// where it refuses that too, through the `ping` program.
///
/// A request carries no IP options and at most 250 bytes of data (16 through `ping`); any other
/// fails with `kEchoGeneralFailure`. An address that is no single machine's is sent nothing and
/// gives `kEchoBadDestination`; a handle that couldn't be had gives `kEchoNoResources`.
class LinuxIcmp final : public IcmpService {
 public:
  /// @param waits what the event loop serves, so that it goes on while an echo is under way.
  explicit LinuxIcmp(DescriptorWaits& waits);

  IcmpHandle IcmpCreateFile() override;
  Task<std::uint32_t> IcmpSendEcho(IcmpHandle handle, std::int32_t address, std::string_view data,
                                   const IP_OPTION_INFORMATION* options, EchoReply& reply,
                                   std::uint32_t replySize,
                                   std::uint32_t timeoutMilliseconds) override;
  bool IcmpCloseHandle(IcmpHandle handle) override;

 private:
  Task<EchoOutcome> Send(IcmpHandle handle, EchoRequest request,
                         std::chrono::steady_clock::time_point start,
                         std::chrono::milliseconds timeout);

  DescriptorWaits& waits_;
  struct Open {
    IcmpHandle handle;
    std::unique_ptr<EchoSocket> socket;  ///< nothing stands for the `ping` program
  };

  std::vector<Open> open_;  ///< one, as a rule
  IcmpHandle lastHandle_ = 0;
  /// The first kind of socket to try: one that the system has refused isn't tried on every echo.
  EchoSocketKind preferred_ = EchoSocketKind::Datagram;
  std::uint16_t identifier_;
  std::uint16_t sequence_;
};

}  // namespace kestrava
