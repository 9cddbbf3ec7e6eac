// Measures the program's speed, each figure beside its floor. `bench.sh` gives it a display and a
// network of its own, with the addresses of a silent and of a refusing machine as the first
// arguments. The names of figures may follow them; without them all are measured.

#include <QApplication>
#include <clocale>
#include <cstdio>
#include <span>

#include "figures.h"
#include "measurements.h"

int main(int argc, char** argv) {
  using namespace kestrava;

  if (argc < 3) {
    std::fputs("usage: kestrava_bench SILENT_ADDRESS REFUSING_ADDRESS [FIGURE...]\n", stderr);
    return 2;
  }
  const QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  const std::string folder = QApplication::applicationDirPath().toStdString();
  const std::string program = folder + "/../kestrava";
  const std::string bareWindow = folder + "/bare_window";
  const Measurement measurements[] = {
      {"pass_row", [] { MeasurePassRow(31); }},
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
  return Run(measurements, std::span(argv + 3, argv + argc));
}
