#include <cstdio>

#include "figure.h"
#include "figures.h"
#include "real_program.h"
#include "stall.h"
#include "system.h"

namespace kestrava {

namespace {

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

double LongestStall(const std::vector<std::string>& addresses) {
  RealProgram program;
  program.Fill(addresses);
  const auto check = [](void* passing) { static_cast<RealProgram*>(passing)->Check(kSilent); };
  return LongestStallOf(check, &program);
}

}  // namespace kestrava
