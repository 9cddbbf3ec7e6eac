#pragma once

#include <cstdint>

#include "platform/net/remote_desktop_attempts.h"
#include "platform/win32/message_window.h"
#include "platform/win32/win32_event_loop.h"

namespace kestrava {

/// The Remote Desktop client over a socket of the system, of which all that happens comes as a
/// message (WSAAsyncSelect).
class Win32RemoteDesktop final : public RemoteDesktopAttempts {
 public:
  explicit Win32RemoteDesktop(Win32EventLoop& eventLoop);
  ~Win32RemoteDesktop() override;
  Win32RemoteDesktop(const Win32RemoteDesktop&) = delete;
  Win32RemoteDesktop& operator=(const Win32RemoteDesktop&) = delete;

 private:
  bool StartConnecting(std::uint32_t address) override;
  void SetLimit(Deadline deadline) override;
  void StopLimit() override;
  void StopListening() override;
  void CloseSocket() override;

  void TakeMessage(unsigned message, std::intptr_t lParam);
  void TakeTimer();
  void Negotiate(int error);
  void ReadConfirm();
  void EndByError(int error);

  Win32EventLoop& eventLoop_;
  MessageWindow window_;
  unsigned socketMessage_;  ///< of the latest attempt
  std::uintptr_t socket_;
  Deadline limit_;
};

}  // namespace kestrava
