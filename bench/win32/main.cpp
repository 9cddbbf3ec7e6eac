// Measures the speed of the program for Windows, each figure beside its floor. `bench.sh --windows`
// runs it under Wine, with the addresses of a silent and of a refusing machine as the first
// arguments. The names of figures may follow them; without them all are measured.

#include <cstdio>
#include <filesystem>
#include <span>
#include <string>

#include "figure.h"
#include "figures.h"
#include "measurements.h"
#include "stall.h"

namespace {

void MeasureFile(const std::string& program) {
  const auto bytes = std::filesystem::file_size(program + ".exe");
  kestrava::PrintFigure("binary_size", static_cast<double>(bytes) / 1024, 700);
}

}  // namespace

namespace kestrava {

void MeasureLongestStall(const std::string& address) {
  constexpr double kMilliseconds = 1000;
  const std::vector<std::string> addresses(10, address);
  PrintFigure("longest_stall", kMilliseconds * LongestStall(addresses), 20);
}

}  // namespace kestrava

int main(int argc, char** argv) {
  using namespace kestrava;

  if (argc < 3) {
    std::fputs("usage: kestrava_bench SILENT_ADDRESS REFUSING_ADDRESS [FIGURE...]\n", stderr);
    return 2;
  }
  const std::string folder = std::filesystem::path(argv[0]).parent_path().string();
  const Measurement measurements[] = {
      {"silent_row", [&] { MeasureSilentMachine(argv[1]); }},
      {"refused_row_cpu", [&] { MeasureRefusingMachine(argv[2]); }},
      {"longest_stall", [&] { MeasureLongestStall(argv[1]); }},
      {"pump_idle", [] { MeasureIdlePump(1.2); }},
      {"startup", [&] { MeasureStartup(folder, 1.6); }},
      {"load_100k", [&] { MeasureLoad(folder); }},
      {"save_100k", [&] { MeasureSave(folder); }},
      {"remove_half", MeasureRemoval},
      {"binary_size", [&] { MeasureFile(folder + "/../kestrava"); }},
      // An echo under Wine takes some milliseconds.
      {"pass_row", [] { MeasurePassRow(5); }},
  };
  return Run(measurements, std::span(argv + 3, argv + argc));
}
