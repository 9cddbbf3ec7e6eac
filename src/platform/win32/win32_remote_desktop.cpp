#include "platform/win32/win32_remote_desktop.h"

#include <algorithm>
#include <utility>

#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

using std::chrono::steady_clock;

constexpr WORD kSocketsVersion = MAKEWORD(2, 2);
constexpr UINT_PTR kLimitTimer = 1;

/// Each attempt has the next one of these messages: one that still waits belongs to no other.
constexpr unsigned kFirstMessage = WM_APP;
constexpr unsigned kLastMessage = 0xBFFF;

}  // namespace

Win32RemoteDesktop::Win32RemoteDesktop(Win32EventLoop& eventLoop)
    : eventLoop_(eventLoop),
      window_(MessageWindow::Kind::MessagesOnly,
              [this](unsigned message, std::uintptr_t, std::intptr_t lParam) {
                if (message != WM_TIMER && message < kFirstMessage) return false;
                const bool rests = eventLoop_.Rests();
                TakeMessage(message, lParam);
                if (rests) eventLoop_.EndRest();
                return true;
              }),
      socketMessage_(kFirstMessage),
      socket_(INVALID_SOCKET) {
  ::WSADATA data{};
  // Where there are no sockets, none can be made, and an attempt fails at once.
  ::WSAStartup(kSocketsVersion, &data);
  eventLoop_.Watch([this] { return IsUnderWay(); });
}

Win32RemoteDesktop::~Win32RemoteDesktop() {
  End(State::Idle);
  ::WSACleanup();
}

bool Win32RemoteDesktop::StartConnecting(std::uint32_t address) {
  sockaddr_in peer{};
  peer.sin_family = AF_INET;
  peer.sin_port = htons(kRemoteDesktopPort);
  peer.sin_addr.s_addr = address;
  socket_ = WSASocketW(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0,
                       WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT);
  if (socket_ == INVALID_SOCKET) return false;
  socketMessage_ = socketMessage_ == kLastMessage ? kFirstMessage : socketMessage_ + 1;
  // It also keeps the socket's calls from waiting.
  if (WSAAsyncSelect(socket_, window_.Handle(), socketMessage_, FD_CONNECT | FD_READ | FD_CLOSE) !=
          0 ||
      (connect(socket_, reinterpret_cast<const sockaddr*>(&peer), sizeof peer) != 0 &&
       WSAGetLastError() != WSAEWOULDBLOCK)) {
    CloseSocket();
    return false;
  }
  return true;
}

void Win32RemoteDesktop::TakeMessage(unsigned message, std::intptr_t lParam) {
  if (message == WM_TIMER) return TakeTimer();
  if (message != socketMessage_) return;
  if (CurrentState() == State::Connecting && WSAGETSELECTEVENT(lParam) == FD_CONNECT) {
    Negotiate(WSAGETSELECTERROR(lParam));
  } else if (CurrentState() == State::Negotiating) {
    ReadConfirm();
  }
}

/// What has come counts, even if the program was kept from looking until time was up: messages of
/// the socket come ahead of those of timers.
void Win32RemoteDesktop::TakeTimer() {
  if (!IsUnderWay()) return;
  // The system's clock for timers is coarse.
  if (steady_clock::now() < limit_) return SetLimit(limit_);
  End(State::Idle);
}

void Win32RemoteDesktop::Negotiate(int error) {
  if (error != 0) return EndByError(error);
  // A connection that has just come about takes so few bytes whole.
  if (send(socket_, reinterpret_cast<const char*>(kConnectionRequest.data()),
           static_cast<int>(kConnectionRequest.size()), 0) < 0) {
    return EndByError(WSAGetLastError());
  }
  StartNegotiating();
}

void Win32RemoteDesktop::ReadConfirm() {
  const auto room = ReplyRoom();
  const int size =
      recv(socket_, reinterpret_cast<char*>(room.data()), static_cast<int>(room.size()), 0);
  if (size >= 0) return TakeReply(static_cast<std::size_t>(size));
  const int error = WSAGetLastError();
  if (error != WSAEWOULDBLOCK) EndByError(error);
}

void Win32RemoteDesktop::EndByError(int error) {
  const bool peerDropped = error == WSAECONNRESET || error == WSAECONNABORTED;
  End(peerDropped ? State::Dropped : State::Idle);
}

void Win32RemoteDesktop::SetLimit(Deadline deadline) {
  limit_ = deadline;
  const auto rest = std::chrono::ceil<std::chrono::milliseconds>(limit_ - steady_clock::now());
  SetTimer(window_.Handle(), kLimitTimer,
           static_cast<UINT>(std::max<std::int64_t>(rest.count(), 0)), nullptr);
}

void Win32RemoteDesktop::StopLimit() { KillTimer(window_.Handle(), kLimitTimer); }

void Win32RemoteDesktop::StopListening() { WSAAsyncSelect(socket_, window_.Handle(), 0, 0); }

void Win32RemoteDesktop::CloseSocket() {
  if (socket_ != INVALID_SOCKET) closesocket(std::exchange(socket_, INVALID_SOCKET));
}

}  // namespace kestrava
