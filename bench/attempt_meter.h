#pragma once

#include <string>

#include "platform/remote_desktop.h"

namespace kestrava {

/// Seconds since some fixed moment.
struct Moment {
  double clock;      ///< on the wall
  double processor;  ///< spent by this process

  static Moment Now();
};

/// Hands everything on to the real Remote Desktop control and notes when its attempts were under
/// way.
class AttemptMeter final : public MsRdpClient2 {
 public:
  explicit AttemptMeter(MsRdpClient2& rdp) : rdp_(rdp) {}

  std::int16_t Connected() override;
  void SetServer(const std::string& server) override { rdp_.SetServer(server); }
  void Connect() override;
  void Disconnect() override { rdp_.Disconnect(); }

  /// Of the last attempt, which must have ended: the time from its start to the first look that saw
  /// its end, and the share of one processor core that the process took meanwhile.
  double AttemptSeconds() const { return end_.clock - start_.clock; }
  double ProcessorShare() const { return (end_.processor - start_.processor) / AttemptSeconds(); }

 private:
  MsRdpClient2& rdp_;
  bool underWay_ = false;
  Moment start_{};
  Moment end_{};
};

}  // namespace kestrava
