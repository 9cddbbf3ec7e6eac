#pragma once

#include <functional>

#include "platform/linux/event_source.h"
#include "platform/linux/file_descriptor.h"

namespace kestrava {

/// SIGTERM, SIGINT and SIGHUP as events of the loop instead of a sudden end.
///
/// To be made before any other thread starts: the signals are blocked in this thread and in those
/// that it starts from then on, and stay so. Child processes inherit the block, so whoever starts
/// one must give it an empty signal mask.
class TerminationSignals final : public EventSource {
 public:
  /// `end` is called once for each batch of signals and must not throw.
  /// @throws std::system_error if the system has no descriptor left for it.
  explicit TerminationSignals(std::function<void()> end);

  int Descriptor() const override { return signals_.Number(); }
  void Dispatch() noexcept override;
  bool UnderWay() const override { return false; }

 private:
  FileDescriptor signals_;
  std::function<void()> end_;
};

}  // namespace kestrava
