#pragma once

#include <map>
#include <memory>
#include <vector>

#include "platform/icmp.h"
#include "platform/win32/handle_waits.h"

namespace kestrava {

/// The system's own echo service (IcmpSendEcho2), whose reply is translated into the program's
/// record.
///
/// A request carries no IP options and at most 250 bytes of data; any other fails with
/// `kEchoGeneralFailure`. An address that is no single machine's is sent nothing and gives
/// `kEchoBadDestination`; a handle that couldn't be had gives `kEchoNoResources`.
class Win32Icmp final : public IcmpService {
 public:
  /// @param waits lets the event loop go on while an echo is under way.
  explicit Win32Icmp(HandleWaits& waits);
  ~Win32Icmp() override;

  IcmpHandle IcmpCreateFile() override;
  Task<std::uint32_t> IcmpSendEcho(IcmpHandle handle, std::int32_t address, std::string_view data,
                                   const IP_OPTION_INFORMATION* options, EchoReply& reply,
                                   std::uint32_t replySize,
                                   std::uint32_t timeoutMilliseconds) override;
  bool IcmpCloseHandle(IcmpHandle handle) override;

 private:
  class Service;
  struct Exchange;

  void DropEnded();

  HandleWaits& waits_;
  std::map<IcmpHandle, std::shared_ptr<Service>> open_;
  IcmpHandle lastHandle_ = 0;
  /// The system writes into each until its event is signalled, whether or not anybody still waits.
  std::vector<std::shared_ptr<Exchange>> underWay_;
};

}  // namespace kestrava
