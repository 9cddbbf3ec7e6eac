#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <thread>

#include "child_process.h"
#include "figure.h"
#include "figures.h"

namespace kestrava {

namespace {

using namespace std::chrono_literals;

/// How often a thread has gone to sleep of its own accord, which is once for each time that it was
/// woken (proc_pid_status(5), `voluntary_ctxt_switches`).
long SleepsOf(const std::filesystem::path& thread) {
  std::ifstream file(thread / "status");
  for (std::string word; file >> word;) {
    long count = 0;
    if (word == "voluntary_ctxt_switches:" && file >> count) return count;
  }
  throw std::runtime_error("no count in " + thread.string());
}

/// The same of all threads of a process.
long SleepsOf(const ChildProcess& process) {
  long sleeps = 0;
  const auto threads = "/proc/" + std::to_string(process.Number()) + "/task";
  for (const auto& thread : std::filesystem::directory_iterator(threads)) {
    sleeps += SleepsOf(thread.path());
  }
  return sleeps;
}

}  // namespace

void MeasureIdleWakeups(const std::string& program, const std::string& bareWindow) {
  const ChildProcess ours({program});
  const ChildProcess floor({bareWindow});
  // Qt's threads that helped with the start end after 30 idle seconds, and their counts with them.
  std::this_thread::sleep_for(40s);
  const long ourStart = SleepsOf(ours);
  const long floorStart = SleepsOf(floor);
  std::this_thread::sleep_for(60s);
  const auto wakeups = static_cast<double>(SleepsOf(ours) - ourStart);
  std::fprintf(stderr, "  ours %.4g, bare window %ld\n", wakeups, SleepsOf(floor) - floorStart);
  PrintFigure("idle_wakeups", wakeups, 3);
}

}  // namespace kestrava
