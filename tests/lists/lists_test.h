#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

#include "lists/connection_list_file.h"
#include "platform/linux/linux_file_system.h"
#include "platform/message_box.h"
#include "support/bare_table.h"
#include "support/memory_files.h"

namespace kestrava::test {

inline const std::string kMagic = "ZR_Kestrava_ConnectionList\r\n";
inline const std::string kQuestion =
    "Overwrite File ?: Are you sure you want to overwrite the existing file ?";

/// A user in front of message boxes, who gives `answer` to the next question and Yes to the others.
struct Boxes : MessageBoxes {
  void MsgBox(const std::string& text, MessageIcon icon) override {
    EXPECT_EQ(icon, MessageIcon::None);
    shown.push_back(text);
  }
  YesNo AskYesNo(const std::string& text, const std::string& title) override {
    shown.push_back(title + ": " + text);
    return std::exchange(answer, YesNo::Yes);
  }
  YesNo answer = YesNo::Yes;
  std::vector<std::string> shown;
};

/// Real files in a folder of their own, whose name is as awkward as users make them.
struct RealFiles : testing::Test {
  ~RealFiles() override { std::filesystem::remove_all(folder); }

  void Write(const std::string& content) const { std::ofstream(file) << content; }
  std::string Read() const {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  std::string Load(const std::string& name) { return LoadConnectionList(name, table.grid, files); }
  std::string Save(const std::string& name, ConfirmOverwrite confirm = ConfirmOverwrite::Yes) {
    return SaveConnectionList(name, table.grid, confirm, files, boxes);
  }

  std::string pattern = std::filesystem::temp_directory_path() / "lists, \xC3\xBC\xFF XXXXXX";
  const std::filesystem::path folder = mkdtemp(pattern.data());
  const std::string file = folder / "my list.kvl";
  LinuxFileSystem files;
  Boxes boxes;
  BareTable table;
};

}  // namespace kestrava::test
