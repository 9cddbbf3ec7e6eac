#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <linux/capability.h>
#include <stdexcept>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

#include "figure.h"
#include "figures.h"
#include "real_program.h"

namespace kestrava {

namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

/// What a machine that answers nothing takes at the least: the echo's time-out, and that of an
/// attempt that gets no TCP connection.
constexpr double kEchoSeconds = 0.2;
constexpr double kAttemptSeconds = 2;

constexpr int kRounds = 3;
constexpr const char* kSilent = "Offline (No Response)";

/// A pass over one machine that doesn't answer: medians of some rounds.
PassCost CostOf(const std::string& address) {
  RealProgram program;
  program.Fill({address});
  std::vector<double> seconds;
  std::vector<double> processorSeconds;
  for (int round = 0; round < kRounds; ++round) {
    const PassCost cost = program.Check(kSilent);
    seconds.push_back(cost.clock);
    processorSeconds.push_back(cost.processor);
    std::fprintf(stderr, "  %s: %.4g s with %.3g s of processor time\n", address.c_str(),
                 seconds.back(), processorSeconds.back());
  }
  return {Median(std::move(seconds)), Median(std::move(processorSeconds))};
}

/// Takes user events, which carry the time at which they were posted, and keeps the longest wait.
class Stopwatch final : public QObject {
 public:
  struct Posted : QEvent {
    Posted() : QEvent(QEvent::User) {}
    steady_clock::time_point time = steady_clock::now();
  };

  std::chrono::duration<double> longest{};

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::User) return QObject::event(event);
    longest = std::max<std::chrono::duration<double>>(
        longest, steady_clock::now() - static_cast<Posted*>(event)->time);
    return true;
  }
};

/// The longest time in seconds for which an event that another thread posts waits during a pass.
double LongestStall(const std::vector<std::string>& addresses) {
  RealProgram program;
  program.Fill(addresses);
  Stopwatch stopwatch;
  std::atomic<bool> passing = true;
  std::thread poster([&] {
    for (; passing; std::this_thread::sleep_for(1ms)) {
      QCoreApplication::postEvent(&stopwatch, new Stopwatch::Posted);
    }
  });
  program.Check(kSilent);
  passing = false;
  poster.join();
  return stopwatch.longest.count();
}

/// Grants or refuses this process ICMP sockets, so that echoes go out by them or by `ping`.
void AllowSockets(bool allow) {
  const gid_t group = getegid();
  std::ofstream("/proc/sys/net/ipv4/ping_group_range")
      << (allow ? group : group + 1) << ' ' << (allow ? group : group + 1);
  __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
  __user_cap_data_struct sets[2];
  syscall(SYS_capget, &header, sets);
  constexpr __u32 kBit = 1U << CAP_NET_RAW;
  sets[0].effective = allow ? sets[0].effective | kBit : sets[0].effective & ~kBit;
  if (syscall(SYS_capset, &header, sets) != 0) throw std::runtime_error("sockets stay as they are");
}

}  // namespace

void MeasureSilentMachine(const std::string& address) {
  const PassCost cost = CostOf(address);
  PrintFigure("silent_row_time", cost.clock / (kEchoSeconds + kAttemptSeconds), 1.02);
  PrintFigure("silent_row_cpu", cost.processor / cost.clock, 0.01);
}

void MeasureRefusingMachine(const std::string& address) {
  constexpr double kMilliseconds = 1000;
  PrintFigure("refused_row_cpu", kMilliseconds * CostOf(address).processor, 15);
}

void MeasureLongestStall(const std::string& address) {
  constexpr double kMilliseconds = 1000;
  const std::vector<std::string> addresses(10, address);
  double longest = LongestStall(addresses);
  std::fprintf(stderr, "  by socket %.3g s, ", longest);
  AllowSockets(false);
  const double byPing = LongestStall(addresses);
  AllowSockets(true);
  std::fprintf(stderr, "by ping %.3g s\n", byPing);
  longest = std::max(longest, byPing);
  PrintFigure("longest_stall", kMilliseconds * longest, 20);
}

}  // namespace kestrava
