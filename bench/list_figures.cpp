#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "figure.h"
#include "figures.h"
#include "lists/connection_list_file.h"
#include "long_list.h"
#include "system.h"

namespace kestrava {

namespace {

constexpr int kRounds = 11;

std::string Contents(const std::string& name) {
  std::ostringstream text;
  text << std::ifstream(name, std::ios::binary).rdbuf();
  return text.str();
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
              Finish(SaveConnectionList(list.name, program.window.grdServers, ConfirmOverwrite::Yes,
                                        program.Files(), program.Boxes()));
          if (!result.empty()) throw std::runtime_error("the list isn't saved: " + result);
        });
        if (Contents(list.name) != list.bytes) throw std::runtime_error("saved something else");
        return seconds;
      },
      [&] {
        std::filesystem::remove(list.name);
        return SecondsOf([&] { WriteFileBarely(list.name, list.bytes); });
      });
  PrintFigure("save_100k", ratio, 2);
}

}  // namespace kestrava
