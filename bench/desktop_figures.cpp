#include "figure.h"
#include "figures.h"
#include "real_program.h"
#include "system.h"

namespace kestrava {

namespace {

/// Work that does nothing but give the loop so many turns.
Task<> TakeTurns(EventLoop& loop, int turns) {
  for (int turn = 0; turn < turns; ++turn) co_await loop.PumpEvents();
}

}  // namespace

void MeasureIdlePump(double target) {
  constexpr int kRounds = 31;
  constexpr int kTurns = 10000;
  RealProgram program;
  EventLoop& loop = program.Loop();
  const double ratio = RatioOf(
      kRounds,
      [&] {
        return SecondsOf([&] {
          Task<> work = TakeTurns(loop, kTurns);
          for (work.Start(); work.UnderWay();) ServeWaitingEvents();
        });
      },
      [] {
        return SecondsOf([] {
          for (int turn = 0; turn < kTurns; ++turn) ServeWaitingEvents();
        });
      });
  PrintFigure("pump_idle", ratio, target);
}

void MeasureStartup(const std::string& folder, double target) {
  constexpr int kRounds = 31;
  const auto start = [&folder](const char* program) {
    return [path = folder + "/" + program] { return SecondsOf([&] { RunProgram(path); }); };
  };
  PrintFigure("startup", RatioOf(kRounds, start("kestrava_startup"), start("bare_startup")),
              target);
}

}  // namespace kestrava
