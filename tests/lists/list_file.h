#pragma once

#include <filesystem>
#include <fstream>

#include "lists/connection_list_file.h"
#include "support/await.h"
#include "support/bare_table.h"
#include "support/memory_desktop.h"
#include "system_files.h"  // of each system

namespace kestrava::test {

inline const std::string kMagic = "ZR_Kestrava_ConnectionList\r\n";
inline const std::string kTooFew = "5 - a line of the list has fewer than four commas";
inline const std::string kReselect = "RESELECT";

/// Real files in a folder of their own, whose name is as awkward as users make them.
struct ListFile : testing::Test {
  ~ListFile() override { std::filesystem::remove_all(NativePath(folder)); }

  void Write(const std::string& content) const {
    std::ofstream(NativePath(file), std::ios::binary) << content;
  }
  std::string Read() const {
    std::ifstream stream(NativePath(file), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  std::string Load(const std::string& name) {
    return Finish(LoadConnectionList(name, table.grid, system.worker));
  }
  std::string Save(const std::string& name) {
    return Finish(SaveConnectionList(name, table.grid, ConfirmOverwrite::No, system.worker, boxes));
  }
  std::string Finish(Task<std::string> operation) {
    return Await(std::move(operation), [this] { system.Serve(); });
  }

  const std::string folder = MakeFolder();
  const std::string file = folder + "/my list.kvl";
  SystemFiles system;
  MemoryDesktop boxes;
  BareTable table;

 private:
  static std::string MakeFolder() {
    const std::string start = std::filesystem::temp_directory_path().string() + kAwkwardFolder;
    int number = 0;
    while (!std::filesystem::create_directory(NativePath(start + std::to_string(number)))) ++number;
    return start + std::to_string(number);
  }
};

}  // namespace kestrava::test
