#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <string>

#include "platform/net/x224.h"
#include "platform/remote_desktop.h"
#include "platform/win32/message_window.h"
#include "platform/win32/win32_event_loop.h"

namespace kestrava {

/// A Remote Desktop client that goes as far as the X.224 Connection Confirm and no further: a peer
/// that sends a well-formed one counts as connected until it is dropped here, whatever the peer
/// does next. An attempt that has no TCP connection is given up after two seconds, any other after
/// three. What comes of the socket comes as a message (WSAAsyncSelect).
class Win32RemoteDesktop final : public MsRdpClient2 {
 public:
  explicit Win32RemoteDesktop(Win32EventLoop& eventLoop);
  ~Win32RemoteDesktop() override;
  Win32RemoteDesktop(const Win32RemoteDesktop&) = delete;
  Win32RemoteDesktop& operator=(const Win32RemoteDesktop&) = delete;

  std::int16_t Connected() override;
  void SetServer(const std::string& server) override { server_ = server; }
  void Connect() override;
  void Disconnect() override { End(State::Idle); }

 private:
  enum class State {
    Idle,
    Connecting,   ///< waiting for TCP
    Negotiating,  ///< waiting for the rest of the confirm
    Standing,
    Dropped,  ///< by the peer ahead of its confirm, and `Connected` hasn't told it yet
  };

  bool UnderWay() const { return state_ == State::Connecting || state_ == State::Negotiating; }
  void StartConnecting(std::uint32_t address);
  void TakeMessage(unsigned message, std::intptr_t lParam);
  void TakeTimer();
  void Negotiate(int error);
  void ReadConfirm();
  void End(State state);
  void EndByError(int error);
  void SetLimit(std::chrono::seconds sinceStart);

  Win32EventLoop& eventLoop_;
  MessageWindow window_;
  unsigned socketMessage_;  ///< of the latest attempt
  std::uintptr_t socket_;
  std::chrono::steady_clock::time_point start_;  ///< of the attempt
  std::chrono::steady_clock::time_point limit_;
  std::string server_;
  State state_ = State::Idle;
  /// What has come of the confirm, with room for the byte that makes it too long.
  std::array<std::uint8_t, kLongestConfirm + 1> reply_{};
  std::size_t replySize_ = 0;
};

}  // namespace kestrava
