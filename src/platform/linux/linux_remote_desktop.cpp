#include "platform/linux/linux_remote_desktop.h"

#include <cerrno>
#include <netinet/in.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <sys/timerfd.h>
#include <system_error>

namespace kestrava {

namespace {

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

bool LinuxRemoteDesktop::StartConnecting(std::uint32_t address) {
  sockaddr_in peer{};
  peer.sin_family = AF_INET;
  peer.sin_port = htons(port_);
  peer.sin_addr.s_addr = address;
  FileDescriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  if (!socket) return false;
  if (connect(socket.Number(), reinterpret_cast<const sockaddr*>(&peer), sizeof peer) != 0 &&
      errno != EINPROGRESS) {
    return false;
  }
  if (Watch(events_, EPOLL_CTL_ADD, socket, EPOLLOUT) != 0) return false;
  socket_ = std::move(socket);
  return true;
}

void LinuxRemoteDesktop::Dispatch() noexcept {
  std::array<epoll_event, 2> waiting;
  const int count =
      epoll_wait(events_.Number(), waiting.data(), static_cast<int>(waiting.size()), 0);
  const State before = CurrentState();
  bool timeIsUp = false;
  for (int index = 0; index < count; ++index) {
    if (waiting[static_cast<std::size_t>(index)].data.fd == timer_.Number()) {
      timeIsUp = true;
    } else if (CurrentState() == State::Connecting) {
      Negotiate();
    } else if (CurrentState() == State::Negotiating) {
      ReadConfirm();
    }
  }
  // What has just come counts, even if the program was kept from looking until time was up.
  if (timeIsUp && CurrentState() == before && UnderWay()) End(State::Idle);
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
  StartNegotiating();
}

void LinuxRemoteDesktop::ReadConfirm() {
  const auto room = ReplyRoom();
  const ssize_t size = recv(socket_.Number(), room.data(), room.size(), 0);
  if (size >= 0) return TakeReply(static_cast<std::size_t>(size));
  if (!MustWait(errno)) EndByError(errno);
}

void LinuxRemoteDesktop::EndByError(int error) {
  const bool peerDropped = error == ECONNRESET || error == EPIPE;
  End(peerDropped ? State::Dropped : State::Idle);
}

/// The timer polls readable then, and no sooner.
void LinuxRemoteDesktop::SetLimit(Deadline deadline) {
  using namespace std::chrono;
  const nanoseconds due = deadline.time_since_epoch();
  const auto wholeSeconds = floor<seconds>(due);
  const itimerspec time{{}, {wholeSeconds.count(), (due - wholeSeconds).count()}};
  timerfd_settime(timer_.Number(), TFD_TIMER_ABSTIME, &time, nullptr);
}

/// The timer no longer polls readable.
void LinuxRemoteDesktop::StopLimit() {
  const itimerspec never{};
  timerfd_settime(timer_.Number(), 0, &never, nullptr);
}

void LinuxRemoteDesktop::StopListening() {
  epoll_ctl(events_.Number(), EPOLL_CTL_DEL, socket_.Number(), nullptr);
}

}  // namespace kestrava
