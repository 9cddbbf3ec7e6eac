#include <cstdio>
#include <fstream>
#include <malloc.h>
#include <unistd.h>

#include "figure.h"
#include "figures.h"
#include "long_list.h"

namespace kestrava {

namespace {

/// The bytes of this process that are in memory, without those that it has freed.
double ResidentBytes() {
  malloc_trim(0);
  std::ifstream file("/proc/self/statm");
  double programPages = 0;
  double residentPages = 0;
  file >> programPages >> residentPages;
  return residentPages * static_cast<double>(sysconf(_SC_PAGESIZE));
}

}  // namespace

void MeasureMemory(const std::string& folder) {
  const LongList list(folder);
  std::fprintf(stderr, "%.3g bytes of each row in the file; in memory:\n",
               static_cast<double>(list.bytes.size()) / LongList::kRows);
  constexpr int kMemoryRounds = 5;
  std::vector<double> ours;
  std::vector<double> floor;
  for (int round = 0; round < kMemoryRounds; ++round) {
    RealProgram program;
    const double before = ResidentBytes();
    Load(program, list);
    const double loaded = ResidentBytes();
    const SplitRows rows = ReadBarely(list);
    ours.push_back((loaded - before) / LongList::kRows);
    floor.push_back((ResidentBytes() - loaded) / LongList::kRows);
  }
  const double bytes = Median(std::move(ours));
  std::fprintf(stderr, "  ours %.4g, as strings %.4g\n", bytes, Median(std::move(floor)));
  PrintFigure("memory_row", bytes, 400);
}

}  // namespace kestrava
