#include <QCoreApplication>
#include <array>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <unistd.h>

#include "figure.h"
#include "figures.h"
#include "lists/connection_list_file.h"
#include "platform/linux/file_descriptor.h"
#include "real_program.h"
#include "shared/connection_table.h"

namespace kestrava {

namespace {

constexpr int kRows = 100000;
constexpr int kRounds = 11;

using SplitRows = std::vector<std::array<std::string, kLastCheckedColumn>>;

/// A list of machines that have all been checked. The file goes with the object.
class LongList {
 public:
  explicit LongList(const std::string& folder) : name(folder + "/long_list.kvl") {
    std::ostringstream text;
    text << "ZR_Kestrava_ConnectionList\r\n";
    for (int row = 0; row < kRows; ++row) {
      text << "Machine " << row << ",10." << row / 62500 << '.' << row / 250 % 250 << '.'
           << row % 250 + 1 << ",Online (Ping Response),Enabled,03/14/2026 09:26:53\r\n";
    }
    bytes = text.str();
    std::ofstream(name, std::ios::binary) << bytes;
  }
  ~LongList() { unlink(name.c_str()); }
  LongList(const LongList&) = delete;
  LongList& operator=(const LongList&) = delete;

  const std::string name;
  std::string bytes;
};

std::string Finish(Task<std::string> operation) {
  std::string result;
  const auto take = [](Task<std::string> awaited, std::string& given) -> Task<> {
    given = co_await std::move(awaited);
  };
  Task<> task = take(std::move(operation), result);
  for (task.Start(); task.UnderWay();) QCoreApplication::processEvents();
  return result;
}

void Load(RealProgram& program, const LongList& list) {
  MSFlexGrid& grid = program.window.grdServers;
  const std::string result = Finish(LoadConnectionList(list.name, grid, program.Files()));
  if (!result.empty()) throw std::runtime_error("the list isn't loaded: " + result);
  if (grid.Rows() != kRows + 1) throw std::runtime_error("the list isn't whole");
  program.CatchUp();
}

SplitRows ReadBarely(const LongList& list) {
  SplitRows rows;
  std::ifstream file(list.name, std::ios::binary);
  std::string line;
  std::getline(file, line);
  while (std::getline(file, line)) {
    auto& row = rows.emplace_back();
    const std::string_view text(line.data(), line.size() - 1);
    std::size_t begin = 0;
    for (std::string& part : row) {
      const std::size_t end = text.find(',', begin);
      part = text.substr(begin, end - begin);
      begin = end + 1;
    }
  }
  return rows;
}

void WriteBarely(const LongList& list) {
  FileDescriptor file(open(list.name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
  if (!file ||
      write(file.Number(), list.bytes.data(), list.bytes.size()) !=
          static_cast<ssize_t>(list.bytes.size()) ||
      fsync(file.Number()) != 0 || file.Close() != 0) {
    throw std::system_error(errno, std::generic_category(), list.name);
  }
}

std::string Contents(const std::string& name) {
  std::ostringstream text;
  text << std::ifstream(name, std::ios::binary).rdbuf();
  return text.str();
}

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

void MeasureLoad(const std::string& folder) {
  const LongList list(folder);
  const double ratio = RatioOf(
      kRounds,
      [&] {
        RealProgram program;
        return SecondsOf([&] { Load(program, list); });
      },
      [&] {
        SplitRows rows;
        return SecondsOf([&] { rows = ReadBarely(list); });
      });
  PrintFigure("load_100k", ratio, 2);
}

void MeasureSave(const std::string& folder) {
  const LongList list(folder);
  RealProgram program;
  Load(program, list);
  const double ratio = RatioOf(
      kRounds,
      [&] {
        std::filesystem::remove(list.name);
        const double seconds = SecondsOf([&] {
          const std::string result =
              Finish(SaveConnectionList(list.name, program.window.grdServers, ConfirmOverwrite::No,
                                        program.Files(), program.Boxes()));
          if (!result.empty()) throw std::runtime_error("the list isn't saved: " + result);
        });
        if (Contents(list.name) != list.bytes) throw std::runtime_error("saved something else");
        return seconds;
      },
      [&] {
        std::filesystem::remove(list.name);
        return SecondsOf([&] { WriteBarely(list); });
      });
  PrintFigure("save_100k", ratio, 2);
}

void MeasureMemory(const std::string& folder) {
  const LongList list(folder);
  std::fprintf(stderr, "%.3g bytes of each row in the file; in memory:\n",
               static_cast<double>(list.bytes.size()) / kRows);
  constexpr int kMemoryRounds = 5;
  std::vector<double> ours;
  std::vector<double> floor;
  for (int round = 0; round < kMemoryRounds; ++round) {
    RealProgram program;
    const double before = ResidentBytes();
    Load(program, list);
    const double loaded = ResidentBytes();
    const SplitRows rows = ReadBarely(list);
    ours.push_back((loaded - before) / kRows);
    floor.push_back((ResidentBytes() - loaded) / kRows);
  }
  const double bytes = Median(std::move(ours));
  std::fprintf(stderr, "  ours %.4g, as strings %.4g\n", bytes, Median(std::move(floor)));
  PrintFigure("memory_row", bytes, 400);
}

}  // namespace kestrava
