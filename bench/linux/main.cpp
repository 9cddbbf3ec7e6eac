// Measures the program's speed, each figure beside its floor. `bench.sh` gives it a display and a
// network of its own, with the addresses of a silent and of a refusing machine as the first
// arguments. The names of figures may follow them; without them all are measured.

#include <QApplication>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <exception>
#include <functional>
#include <span>
#include <string_view>

#include "figures.h"

namespace {

struct Measurement {
  std::string_view name;
  std::function<void()> run;
};

}  // namespace

int main(int argc, char** argv) {
  using namespace kestrava;

  if (argc < 3) {
    std::fputs("usage: kestrava_bench SILENT_ADDRESS REFUSING_ADDRESS [FIGURE...]\n", stderr);
    return 2;
  }
  try {
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    const std::string folder = QApplication::applicationDirPath().toStdString();
    const std::string program = folder + "/../kestrava";
    const std::string bareWindow = folder + "/bare_window";
    const Measurement measurements[] = {
        {"pass_row", MeasurePassRow},
        {"pass_growth", MeasurePassGrowth},
        {"pass_vs_ping", MeasurePassAgainstPing},
        {"pass_vs_fping", MeasurePassAgainstFping},
        {"silent_row", [&] { MeasureSilentMachine(argv[1]); }},
        {"refused_row_cpu", [&] { MeasureRefusingMachine(argv[2]); }},
        {"longest_stall", [&] { MeasureLongestStall(argv[1]); }},
        {"pump_idle", [] { MeasureIdlePump(1.5); }},
        {"startup", [&] { MeasureStartup(folder, 1.25); }},
        {"load_100k", [&] { MeasureLoad(folder); }},
        {"save_100k", [&] { MeasureSave(folder); }},
        {"memory_row", [&] { MeasureMemory(folder); }},
        {"remove_half", MeasureRemoval},
        {"binary_size", [&] { MeasureBinarySize(program, bareWindow); }},
        {"startup_memory", [&] { MeasureStartupMemory(program, bareWindow); }},
        {"idle_wakeups", [&] { MeasureIdleWakeups(program, bareWindow); }},
    };
    const std::span wanted(argv + 3, argv + argc);
    for (const Measurement& measurement : measurements) {
      if (wanted.empty() || std::ranges::find(wanted, measurement.name) != wanted.end()) {
        measurement.run();
      }
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
