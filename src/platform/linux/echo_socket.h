#pragma once

#include <optional>

#include "platform/linux/descriptor_waits.h"
#include "platform/linux/echo_packet.h"
#include "platform/linux/file_descriptor.h"
#include "platform/task.h"

namespace kestrava {

enum class EchoSocketKind {
  Datagram,  ///< open to every user whose group stands in net.ipv4.ping_group_range
  Raw,       ///< needs CAP_NET_RAW
};

/// A socket for one echo (Linux man pages icmp(7), raw(7), ip(7)).
class EchoSocket {
 public:
  using Deadline = DescriptorWaits::Deadline;

  /// Nothing if the system refuses the socket; `errno` then says why.
  static std::optional<EchoSocket> Open(EchoSocketKind kind);

  /// Sends the request and waits for what comes of it, `kEchoTimedOut` if nothing has come by
  /// `deadline`. Packets and errors that belong to other requests are passed over. A datagram
  /// socket puts an identifier of its own in the place of the request's. The socket must outlive
  /// the task.
  Task<EchoOutcome> Exchange(EchoRequest request, Deadline deadline, DescriptorWaits& waits) const;

 private:
  EchoSocket(FileDescriptor socket, EchoSocketKind kind)
      : socket_(std::move(socket)), kind_(kind) {}

  int Send(const EchoRequest& request) const;
  Task<EchoOutcome> AwaitOutcome(EchoRequest request, Deadline deadline,
                                 DescriptorWaits& waits) const;
  std::optional<EchoOutcome> TakeOutcome(const EchoRequest& request) const;
  std::optional<EchoOutcome> Match(const EchoRequest& request, std::uint32_t sender,
                                   std::span<const std::uint8_t> packet) const;
  std::optional<EchoStatus> TakeError(const EchoRequest& request) const;

  FileDescriptor socket_;
  EchoSocketKind kind_;
};

}  // namespace kestrava
