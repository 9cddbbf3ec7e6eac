#pragma once

#include "platform/linux/event_source.h"
#include "platform/linux/file_descriptor.h"
#include "platform/net/remote_desktop_attempts.h"

namespace kestrava {

/// The Remote Desktop client over a socket of this system.
class LinuxRemoteDesktop final : public RemoteDesktopAttempts, public EventSource {
 public:
  /// @throws std::system_error if the system has no descriptors left for it.
  explicit LinuxRemoteDesktop(std::uint16_t port = kRemoteDesktopPort);

  int Descriptor() const override { return events_.Number(); }
  void Dispatch() noexcept override;
  bool UnderWay() const override { return IsUnderWay(); }

 private:
  bool StartConnecting(std::uint32_t address) override;
  void SetLimit(Deadline deadline) override;
  void StopLimit() override;
  void StopListening() override;
  void CloseSocket() override { socket_.Close(); }

  void Negotiate();
  void ReadConfirm();
  void EndByError(int error);

  FileDescriptor events_;  ///< an epoll instance that holds the other two
  FileDescriptor timer_;   ///< runs while an attempt is under way
  FileDescriptor socket_;
  std::uint16_t port_;
};

}  // namespace kestrava
