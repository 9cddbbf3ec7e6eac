#pragma once

#include <array>
#include <chrono>
#include <string>

#include "platform/linux/event_source.h"
#include "platform/linux/file_descriptor.h"
#include "platform/net/x224.h"
#include "platform/remote_desktop.h"

namespace kestrava {

/// The TCP port of Remote Desktop ([MS-RDPBCGR] 2.1).
inline constexpr std::uint16_t kRemoteDesktopPort = 3389;

/// A Remote Desktop client that goes as far as the X.224 Connection Confirm and no further: a peer
/// that sends a well-formed one counts as connected until it is dropped here, whatever the peer
/// does next. An attempt that has no TCP connection is given up after two seconds, any other after
/// three.
class LinuxRemoteDesktop final : public MsRdpClient2, public EventSource {
 public:
  /// @throws std::system_error if the system has no descriptors left for it.
  explicit LinuxRemoteDesktop(std::uint16_t port = kRemoteDesktopPort);

  std::int16_t Connected() override;
  void SetServer(const std::string& server) override { server_ = server; }
  void Connect() override;
  void Disconnect() override { End(State::Idle); }

  int Descriptor() const override { return events_.Number(); }
  void Dispatch() noexcept override;
  bool UnderWay() const override {
    return state_ == State::Connecting || state_ == State::Negotiating;
  }

 private:
  enum class State {
    Idle,
    Connecting,   ///< waiting for TCP
    Negotiating,  ///< waiting for the rest of the confirm
    Standing,
    Dropped,  ///< by the peer ahead of its confirm, and `Connected` hasn't told it yet
  };

  void StartConnecting(std::uint32_t address);
  void Negotiate();
  void ReadConfirm();
  void End(State state);
  void EndByError(int error);
  void SetTimer(std::chrono::seconds sinceStart);
  void StopTimer();

  FileDescriptor events_;                        ///< an epoll instance that holds the other two
  FileDescriptor timer_;                         ///< runs while an attempt is under way
  std::chrono::steady_clock::time_point start_;  ///< of the attempt
  FileDescriptor socket_;
  std::uint16_t port_;
  std::string server_;
  State state_ = State::Idle;
  /// What has come of the confirm, with room for the byte that makes it too long.
  std::array<std::uint8_t, kLongestConfirm + 1> reply_;
  std::size_t replySize_ = 0;
};

}  // namespace kestrava
