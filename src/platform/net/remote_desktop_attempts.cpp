#include "platform/net/remote_desktop_attempts.h"

#include "platform/net/dotted_address.h"

namespace kestrava {

std::int16_t RemoteDesktopAttempts::Connected() {
  if (state_ == State::Dropped) {
    state_ = State::Idle;
    throw RuntimeError(kErrorPeerDropped, "the peer dropped the connection before its answer");
  }
  if (IsUnderWay()) return 2;
  return state_ == State::Standing ? 1 : 0;
}

void RemoteDesktopAttempts::Connect() {
  End(State::Idle);
  const auto address = ParseDottedAddress(server_);
  if (!address || !IsMachineAddress(*address)) {
    throw RuntimeError(kErrorInvalidCall, "no machine's address: " + server_);
  }
  if (!StartConnecting(*address)) return;
  replySize_ = 0;
  state_ = State::Connecting;
  start_ = std::chrono::steady_clock::now();
  SetLimit(start_ + kLongestConnecting);
}

void RemoteDesktopAttempts::StartNegotiating() {
  state_ = State::Negotiating;
  SetLimit(start_ + kLongestAttempt);
}

void RemoteDesktopAttempts::TakeReply(std::size_t size) {
  if (size == 0) return End(State::Dropped);
  replySize_ += size;
  switch (JudgeConfirm(std::span(reply_).first(replySize_))) {
    case ConfirmState::Incomplete:
      break;
    case ConfirmState::Confirm:
      StopLimit();
      StopListening();
      state_ = State::Standing;
      break;
    case ConfirmState::NotRdp:
      End(State::Idle);
      break;
  }
}

void RemoteDesktopAttempts::End(State state) {
  CloseSocket();
  StopLimit();
  state_ = state;
}

}  // namespace kestrava
