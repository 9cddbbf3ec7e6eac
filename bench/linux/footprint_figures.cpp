#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "child_process.h"
#include "figure.h"
#include "figures.h"

namespace kestrava {

namespace {

using namespace std::chrono_literals;

/// Of a program's file without what only a debugger reads.
double StrippedKibibytes(const std::string& program) {
  const std::string stripped = program + ".stripped";
  RunToEnd({"strip", "-o", stripped, program});
  const auto bytes = std::filesystem::file_size(stripped);
  std::filesystem::remove(stripped);
  return static_cast<double>(bytes) / 1024;
}

/// Of the pages that a process has in memory, shared ones included (proc_pid_smaps(5)).
double ResidentKibibytes(const ChildProcess& process) {
  std::ifstream file("/proc/" + std::to_string(process.Number()) + "/smaps_rollup");
  for (std::string word; file >> word;) {
    double kibibytes = 0;
    if (word == "Rss:" && file >> kibibytes) return kibibytes;
  }
  throw std::runtime_error("no resident size of a program that was run");
}

}  // namespace

void MeasureBinarySize(const std::string& program, const std::string& bareWindow) {
  const double kibibytes = StrippedKibibytes(program);
  std::fprintf(stderr, "  ours %.4g, bare window %.4g\n", kibibytes, StrippedKibibytes(bareWindow));
  PrintFigure("binary_size", kibibytes, 512);
}

void MeasureStartupMemory(const std::string& program, const std::string& bareWindow) {
  constexpr int kRounds = 5;
  const auto start = [](const std::string& path) {
    return [&path] {
      const ChildProcess process({path});
      // By then the window has been painted and a tray has been looked for.
      std::this_thread::sleep_for(3s);
      return ResidentKibibytes(process);
    };
  };
  PrintFigure("startup_memory", RatioOf(kRounds, start(program), start(bareWindow)), 1.15);
}

}  // namespace kestrava
