#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/net/x224.h"
#include "platform/remote_desktop.h"

namespace kestrava {

/// The TCP port of Remote Desktop ([MS-RDPBCGR] 2.1).
inline constexpr std::uint16_t kRemoteDesktopPort = 3389;

/// From the start of an attempt to its TCP connection: room for one lost SYN, which is sent again
/// after one second (RFC 6298).
inline constexpr std::chrono::seconds kLongestConnecting{2};
/// From the start of an attempt to its end.
inline constexpr std::chrono::seconds kLongestAttempt{3};

/// A Remote Desktop client that goes as far as the X.224 Connection Confirm and no further: a peer
/// that sends a well-formed one counts as connected until it is dropped here, whatever the peer
/// does next. A desktop adds the socket, and the timer that ends an attempt.
class RemoteDesktopAttempts : public MsRdpClient2 {
 public:
  std::int16_t Connected() final;
  void SetServer(const std::string& server) final { server_ = server; }
  void Connect() final;
  void Disconnect() final { End(State::Idle); }

 protected:
  using Deadline = std::chrono::steady_clock::time_point;

  enum class State {
    Idle,
    Connecting,   ///< waiting for TCP
    Negotiating,  ///< waiting for the rest of the confirm
    Standing,
    Dropped,  ///< by the peer ahead of its confirm, and `Connected` hasn't told it yet
  };

  State CurrentState() const { return state_; }
  bool IsUnderWay() const { return state_ == State::Connecting || state_ == State::Negotiating; }

  /// The TCP connection stands, and the request has been sent.
  void StartNegotiating();
  /// The place for what the peer sends next.
  std::span<std::uint8_t> ReplyRoom() { return std::span(reply_).subspan(replySize_); }
  /// The peer has sent so many bytes into that place; 0 for its end of the connection.
  void TakeReply(std::size_t size);
  /// Drops the connection, and what there is of an attempt.
  void End(State state);

 private:
  /// Begins to connect. @return false, with nothing under way, where that has failed at once, like
  /// any other attempt that fails.
  virtual bool StartConnecting(std::uint32_t address) = 0;
  /// The attempt ends at `deadline`, if nothing comes of it by then.
  virtual void SetLimit(Deadline deadline) = 0;
  virtual void StopLimit() = 0;
  /// Nothing more is wanted of the peer, which may close at once: its answer has come.
  virtual void StopListening() = 0;
  virtual void CloseSocket() = 0;

  std::string server_;
  State state_ = State::Idle;
  Deadline start_;  ///< of the attempt
  /// What has come of the confirm, with room for the byte that makes it too long.
  std::array<std::uint8_t, kLongestConfirm + 1> reply_{};
  std::size_t replySize_ = 0;
};

}  // namespace kestrava
