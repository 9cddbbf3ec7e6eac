#include "platform/linux/termination_signals.h"

#include <cerrno>
#include <csignal>
#include <sys/signalfd.h>
#include <system_error>

namespace kestrava {

TerminationSignals::TerminationSignals(std::function<void()> end) : end_(std::move(end)) {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    // One that is ignored from the start (nohup, a background job) stays ignored.
    struct sigaction present {};
    sigaction(signal, nullptr, &present);
    if (present.sa_handler != SIG_IGN) sigaddset(&signals, signal);
  }
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  signals_ = FileDescriptor(signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC));
  if (!signals_) throw std::system_error(errno, std::generic_category());
}

void TerminationSignals::Dispatch() noexcept {
  bool any = false;
  signalfd_siginfo signal;
  while (read(signals_.Number(), &signal, sizeof signal) == sizeof signal) any = true;
  if (any && end_) end_();
}

}  // namespace kestrava
