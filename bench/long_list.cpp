#include "long_list.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string_view>

#include "lists/connection_list_file.h"
#include "system.h"

namespace kestrava {

LongList::LongList(const std::string& folder) : name(folder + "/long_list.kvl") {
  std::ostringstream text;
  text << "ZR_Kestrava_ConnectionList\r\n";
  for (int row = 0; row < kRows; ++row) {
    text << "Machine " << row << ",10." << row / 62500 << '.' << row / 250 % 250 << '.'
         << row % 250 + 1 << ",Online (Ping Response),Enabled,03/14/2026 09:26:53\r\n";
  }
  bytes = text.str();
  std::ofstream(name, std::ios::binary) << bytes;
}

LongList::~LongList() { std::filesystem::remove(name); }

std::string Finish(Task<std::string> operation) {
  std::string result;
  const auto take = [](Task<std::string> awaited, std::string& given) -> Task<> {
    given = co_await std::move(awaited);
  };
  Task<> task = take(std::move(operation), result);
  for (task.Start(); task.UnderWay();) ServeWaitingEvents();
  return result;
}

void Load(RealProgram& program, const LongList& list) {
  MSFlexGrid& grid = program.window.grdServers;
  const std::string result = Finish(LoadConnectionList(list.name, grid, program.Files()));
  if (!result.empty()) throw std::runtime_error("the list isn't loaded: " + result);
  if (grid.Rows() != LongList::kRows + 1) throw std::runtime_error("the list isn't whole");
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

}  // namespace kestrava
