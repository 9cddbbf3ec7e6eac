#include <QCoreApplication>

#include "child_process.h"
#include "figure.h"
#include "figures.h"
#include "real_program.h"

namespace kestrava {

namespace {

/// Work that does nothing but give the loop so many turns.
Task<> TakeTurns(EventLoop& loop, int turns) {
  for (int turn = 0; turn < turns; ++turn) co_await loop.PumpEvents();
}

}  // namespace

void MeasureIdlePump() {
  constexpr int kRounds = 31;
  constexpr int kTurns = 10000;
  RealProgram program;
  EventLoop& loop = program.Loop();
  const double ratio = RatioOf(
      kRounds,
      [&] {
        return SecondsOf([&] {
          Task<> work = TakeTurns(loop, kTurns);
          for (work.Start(); work.UnderWay();) QCoreApplication::processEvents();
        });
      },
      [] {
        return SecondsOf([] {
          for (int turn = 0; turn < kTurns; ++turn) QCoreApplication::processEvents();
        });
      });
  PrintFigure("pump_idle", ratio, 1.5);
}

void MeasureStartup(const std::string& folder) {
  constexpr int kRounds = 31;
  const auto start = [&folder](const char* program) {
    return [path = folder + "/" + program] { return SecondsOf([&] { RunToEnd({path}); }); };
  };
  PrintFigure("startup", RatioOf(kRounds, start("kestrava_startup"), start("bare_startup")), 1.25);
}

}  // namespace kestrava
