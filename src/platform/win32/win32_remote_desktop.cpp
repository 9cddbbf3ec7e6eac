#include "platform/win32/win32_remote_desktop.h"

#include <algorithm>
#include <utility>

#include "platform/net/dotted_address.h"
#include "platform/runtime_error.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

using std::chrono::steady_clock;

/// The TCP port of Remote Desktop ([MS-RDPBCGR] 2.1).
constexpr std::uint16_t kRemoteDesktopPort = 3389;
constexpr WORD kSocketsVersion = MAKEWORD(2, 2);

/// Room for one lost SYN, which is sent again after one second (RFC 6298).
constexpr std::chrono::seconds kLongestConnecting{2};
constexpr std::chrono::seconds kLongestAttempt{3};
constexpr UINT_PTR kLimitTimer = 1;

/// Each attempt has the next one of these messages: one that still waits belongs to no other.
constexpr unsigned kFirstMessage = WM_APP;
constexpr unsigned kLastMessage = 0xBFFF;

}  // namespace

Win32RemoteDesktop::Win32RemoteDesktop(Win32EventLoop& eventLoop)
    : eventLoop_(eventLoop),
      window_([this](unsigned message, std::uintptr_t, std::intptr_t lParam) {
        const bool rests = eventLoop_.Rests();
        TakeMessage(message, lParam);
        if (rests) eventLoop_.EndRest();
      }),
      socketMessage_(kFirstMessage),
      socket_(INVALID_SOCKET) {
  ::WSADATA data{};
  // Where there are no sockets, none can be made, and an attempt fails at once.
  ::WSAStartup(kSocketsVersion, &data);
  eventLoop_.Watch([this] { return UnderWay(); });
}

Win32RemoteDesktop::~Win32RemoteDesktop() {
  End(State::Idle);
  ::WSACleanup();
}

std::int16_t Win32RemoteDesktop::Connected() {
  if (state_ == State::Dropped) {
    state_ = State::Idle;
    throw RuntimeError(kErrorPeerDropped, "the peer dropped the connection before its answer");
  }
  if (UnderWay()) return 2;
  return state_ == State::Standing ? 1 : 0;
}

void Win32RemoteDesktop::Connect() {
  End(State::Idle);
  const auto address = ParseDottedAddress(server_);
  if (!address || !IsMachineAddress(*address)) {
    throw RuntimeError(kErrorInvalidCall, "no machine's address: " + server_);
  }
  StartConnecting(*address);
}

/// An attempt that fails at once has failed like any other: nothing is under way afterwards.
void Win32RemoteDesktop::StartConnecting(std::uint32_t address) {
  sockaddr_in peer{};
  peer.sin_family = AF_INET;
  peer.sin_port = htons(kRemoteDesktopPort);
  peer.sin_addr.s_addr = address;
  socket_ = WSASocketW(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0,
                       WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT);
  if (socket_ == INVALID_SOCKET) return;
  socketMessage_ = socketMessage_ == kLastMessage ? kFirstMessage : socketMessage_ + 1;
  // It also keeps the socket's calls from waiting.
  if (WSAAsyncSelect(socket_, window_.Handle(), socketMessage_, FD_CONNECT | FD_READ | FD_CLOSE) !=
          0 ||
      (connect(socket_, reinterpret_cast<const sockaddr*>(&peer), sizeof peer) != 0 &&
       WSAGetLastError() != WSAEWOULDBLOCK)) {
    return End(State::Idle);
  }
  replySize_ = 0;
  state_ = State::Connecting;
  start_ = steady_clock::now();
  SetLimit(kLongestConnecting);
}

void Win32RemoteDesktop::TakeMessage(unsigned message, std::intptr_t lParam) {
  if (message == WM_TIMER) return TakeTimer();
  if (message != socketMessage_) return;
  if (state_ == State::Connecting && WSAGETSELECTEVENT(lParam) == FD_CONNECT) {
    Negotiate(WSAGETSELECTERROR(lParam));
  } else if (state_ == State::Negotiating) {
    ReadConfirm();
  }
}

/// What has come counts, even if the program was kept from looking until time was up: messages of
/// the socket come ahead of those of timers.
void Win32RemoteDesktop::TakeTimer() {
  if (!UnderWay()) return;
  if (steady_clock::now() < limit_) return SetLimit(std::chrono::seconds(0));
  End(State::Idle);
}

void Win32RemoteDesktop::Negotiate(int error) {
  if (error != 0) return EndByError(error);
  // A connection that has just come about takes so few bytes whole.
  if (send(socket_, reinterpret_cast<const char*>(kConnectionRequest.data()),
           static_cast<int>(kConnectionRequest.size()), 0) < 0) {
    return EndByError(WSAGetLastError());
  }
  state_ = State::Negotiating;
  SetLimit(kLongestAttempt);
}

void Win32RemoteDesktop::ReadConfirm() {
  const int size = recv(socket_, reinterpret_cast<char*>(reply_.data() + replySize_),
                        static_cast<int>(reply_.size() - replySize_), 0);
  if (size == 0) return End(State::Dropped);
  if (size < 0) {
    const int error = WSAGetLastError();
    if (error != WSAEWOULDBLOCK) EndByError(error);
    return;
  }
  replySize_ += static_cast<std::size_t>(size);
  switch (JudgeConfirm(std::span(reply_).first(replySize_))) {
    case ConfirmState::Incomplete:
      break;
    case ConfirmState::Confirm:
      KillTimer(window_.Handle(), kLimitTimer);
      // The peer may close at once: its answer has come, and nothing more is wanted of it.
      WSAAsyncSelect(socket_, window_.Handle(), 0, 0);
      state_ = State::Standing;
      break;
    case ConfirmState::NotRdp:
      End(State::Idle);
      break;
  }
}

void Win32RemoteDesktop::End(State state) {
  if (socket_ != INVALID_SOCKET) closesocket(std::exchange(socket_, INVALID_SOCKET));
  KillTimer(window_.Handle(), kLimitTimer);
  state_ = state;
}

void Win32RemoteDesktop::EndByError(int error) {
  const bool peerDropped = error == WSAECONNRESET || error == WSAECONNABORTED;
  End(peerDropped ? State::Dropped : State::Idle);
}

/// `sinceStart` of 0 leaves the limit as it is.
void Win32RemoteDesktop::SetLimit(std::chrono::seconds sinceStart) {
  if (sinceStart.count() != 0) limit_ = start_ + sinceStart;
  const auto rest = std::chrono::ceil<std::chrono::milliseconds>(limit_ - steady_clock::now());
  SetTimer(window_.Handle(), kLimitTimer,
           static_cast<UINT>(std::max<std::int64_t>(rest.count(), 0)), nullptr);
}

}  // namespace kestrava
