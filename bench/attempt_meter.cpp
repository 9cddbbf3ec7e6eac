#include "attempt_meter.h"

#include <ctime>

namespace kestrava {
namespace {

constexpr std::int16_t kConnecting = 2;

double Read(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

}  // namespace

Moment Moment::Now() { return {Read(CLOCK_MONOTONIC), Read(CLOCK_PROCESS_CPUTIME_ID)}; }

std::int16_t AttemptMeter::Connected() {
  const std::int16_t connected = rdp_.Connected();
  if (underWay_ && connected != kConnecting) {
    end_ = Moment::Now();
    underWay_ = false;
  }
  return connected;
}

void AttemptMeter::Connect() {
  start_ = Moment::Now();
  underWay_ = true;
  rdp_.Connect();
}

}  // namespace kestrava
