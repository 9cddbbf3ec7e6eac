#include "platform/linux/linux_remote_desktop.h"

#include <cerrno>
#include <netinet/in.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <sys/timerfd.h>
#include <system_error>

#include "platform/net/dotted_address.h"
#include "platform/runtime_error.h"

namespace kestrava {

namespace {

/// Room for one lost SYN, which is sent again after one second (RFC 6298).
constexpr std::chrono::seconds kLongestConnecting{2};
constexpr std::chrono::seconds kLongestAttempt{3};

/// @return 0, or the number of the error.
int Watch(const FileDescriptor& events, int operation, const FileDescriptor& watched,
          std::uint32_t what) {
  epoll_event event{};
  event.events = what;
  event.data.fd = watched.Number();
  return epoll_ctl(events.Number(), operation, watched.Number(), &event) == 0 ? 0 : errno;
}

bool MustWait(int error) { return error == EAGAIN || error == EINTR; }

}  // namespace

LinuxRemoteDesktop::LinuxRemoteDesktop(std::uint16_t port)
    : events_(CheckedDescriptor(epoll_create1(EPOLL_CLOEXEC))),
      timer_(CheckedDescriptor(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC))),
      port_(port) {
  if (const int error = Watch(events_, EPOLL_CTL_ADD, timer_, EPOLLIN)) {
    throw std::system_error(error, std::generic_category());
  }
}

std::int16_t LinuxRemoteDesktop::Connected() {
  if (state_ == State::Dropped) {
    state_ = State::Idle;
    throw RuntimeError(kErrorPeerDropped, "the peer dropped the connection before its answer");
  }
  if (UnderWay()) return 2;
  return state_ == State::Standing ? 1 : 0;
}

void LinuxRemoteDesktop::Connect() {
  End(State::Idle);
  const auto address = ParseDottedAddress(server_);
  if (!address || !IsMachineAddress(*address)) {
    throw RuntimeError(kErrorInvalidCall, "no machine's address: " + server_);
  }
  StartConnecting(*address);
}

/// An attempt that fails at once has failed like any other: nothing is under way afterwards.
void LinuxRemoteDesktop::StartConnecting(std::uint32_t address) {
  sockaddr_in peer{};
  peer.sin_family = AF_INET;
  peer.sin_port = htons(port_);
  peer.sin_addr.s_addr = address;
  FileDescriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  if (!socket) return;
  if (connect(socket.Number(), reinterpret_cast<const sockaddr*>(&peer), sizeof peer) != 0 &&
      errno != EINPROGRESS) {
    return;
  }
  if (Watch(events_, EPOLL_CTL_ADD, socket, EPOLLOUT) != 0) return;
  socket_ = std::move(socket);
  replySize_ = 0;
  state_ = State::Connecting;
  start_ = std::chrono::steady_clock::now();
  SetTimer(kLongestConnecting);
}

void LinuxRemoteDesktop::Dispatch() noexcept {
  std::array<epoll_event, 2> waiting;
  const int count =
      epoll_wait(events_.Number(), waiting.data(), static_cast<int>(waiting.size()), 0);
  const State before = state_;
  bool timeIsUp = false;
  for (int index = 0; index < count; ++index) {
    if (waiting[static_cast<std::size_t>(index)].data.fd == timer_.Number()) {
      timeIsUp = true;
    } else if (state_ == State::Connecting) {
      Negotiate();
    } else if (state_ == State::Negotiating) {
      ReadConfirm();
    }
  }
  // What has just come counts, even if the program was kept from looking until time was up.
  if (timeIsUp && state_ == before && UnderWay()) End(State::Idle);
}

void LinuxRemoteDesktop::Negotiate() {
  int error = 0;
  socklen_t size = sizeof error;
  getsockopt(socket_.Number(), SOL_SOCKET, SO_ERROR, &error, &size);
  if (error != 0) return EndByError(error);
  // A connection that has just come about takes so few bytes whole.
  if (send(socket_.Number(), kConnectionRequest.data(), kConnectionRequest.size(), MSG_NOSIGNAL) <
      0) {
    return EndByError(errno);
  }
  error = Watch(events_, EPOLL_CTL_MOD, socket_, EPOLLIN);
  if (error != 0) return EndByError(error);
  state_ = State::Negotiating;
  SetTimer(kLongestAttempt);
}

void LinuxRemoteDesktop::ReadConfirm() {
  const ssize_t size =
      recv(socket_.Number(), reply_.data() + replySize_, reply_.size() - replySize_, 0);
  if (size == 0) return End(State::Dropped);
  if (size < 0) {
    if (!MustWait(errno)) EndByError(errno);
    return;
  }
  replySize_ += static_cast<std::size_t>(size);
  switch (JudgeConfirm(std::span(reply_).first(replySize_))) {
    case ConfirmState::Incomplete:
      break;
    case ConfirmState::Confirm:
      StopTimer();
      // The peer may close at once: its answer has come, and nothing more is wanted of it.
      epoll_ctl(events_.Number(), EPOLL_CTL_DEL, socket_.Number(), nullptr);
      state_ = State::Standing;
      break;
    case ConfirmState::NotRdp:
      End(State::Idle);
      break;
  }
}

void LinuxRemoteDesktop::End(State state) {
  socket_.Close();
  StopTimer();
  state_ = state;
}

void LinuxRemoteDesktop::EndByError(int error) {
  const bool peerDropped = error == ECONNRESET || error == EPIPE;
  End(peerDropped ? State::Dropped : State::Idle);
}

/// Makes the timer poll readable so long after the attempt's start, and no sooner.
void LinuxRemoteDesktop::SetTimer(std::chrono::seconds sinceStart) {
  using namespace std::chrono;
  const nanoseconds due = (start_ + sinceStart).time_since_epoch();
  const auto wholeSeconds = floor<seconds>(due);
  const itimerspec time{{}, {wholeSeconds.count(), (due - wholeSeconds).count()}};
  timerfd_settime(timer_.Number(), TFD_TIMER_ABSTIME, &time, nullptr);
}

/// It no longer polls readable.
void LinuxRemoteDesktop::StopTimer() {
  const itimerspec never{};
  timerfd_settime(timer_.Number(), 0, &never, nullptr);
}

}  // namespace kestrava
