#include <random>

#include "lists_test.h"

namespace kestrava::test {
namespace {

using namespace std::string_literals;

constexpr const char* kTooFew = "5 - a line of the list has fewer than four commas";

TEST_F(RealFiles, LoadToTheLetter) {
  const std::string reselect = "RESELECT";
  const std::string line = "Mail,192.0.2.1,Unchecked,Enabled,02/08/06";
  const std::array<std::string, 5> mail{"Mail", "192.0.2.1", "Unchecked", "Enabled", "02/08/06"};
  const std::string magic = kMagic.substr(0, 26);
  const struct {
    std::string content, result;
    Rows rows;
  } cases[] = {
      {"", reselect, {}},
      {line + "\r\n", reselect, {}},
      {magic + " \r\nzr_kestrava_connectionlist\r\n", reselect, {}},
      {magic, "", {}},
      {kMagic + line + "\r\n", "", {mail}},
      {magic + "\n" + line + "\n" + line, "", {mail, mail}},
      {magic + "\r" + line + "\r" + line + "\r", "", {mail, mail}},
      {line + "\n\n\r" + magic + "\n" + line + "\r" + kMagic + line, "", {mail, mail}},
      {kMagic + "\r\n" + line, kTooFew, {{}}},
      {magic + "\n\r" + line, kTooFew, {{}}},
      {kMagic + line + "\n" + magic + " \n" + line, kTooFew, {mail, {}}},
      {kMagic + "a,b,c,d\n" + line, kTooFew, {{"a", "b", "c"}}},
      {kMagic + ",,,,\r\n", "", {{}}},
      {kMagic + "a, b,c,d,e,f,,\r\n", "", {{"a", " b", "c", "d", "e,f,,"}}},
      {kMagic + "<b>\0\xFF\xC3\x1A,\t,,,\"\r\n"s, "", {{"<b>\0\xFF\xC3\x1A"s, "\t", "", "", "\""}}},
  };
  MemoryFiles memory;
  for (const auto& [content, result, rows] : cases) {
    SCOPED_TRACE(testing::PrintToString(content));
    Write(memory.files["list"] = content);
    EXPECT_EQ(Load(file), result);
    EXPECT_EQ(table.Connections(), rows);
    for (memory.chunk = 1; memory.chunk < 4; ++memory.chunk) {
      EXPECT_EQ(LoadConnectionList("list", table.grid, memory), result);
      EXPECT_EQ(table.Connections(), rows) << "read in pieces of " << memory.chunk;
    }
    const bool asWritten = content.starts_with(kMagic) && content.ends_with("\r\n");
    EXPECT_EQ(Save(file), "");
    EXPECT_TRUE(Read() == content || !asWritten);
  }
}

TEST_F(RealFiles, SaveAsksBeforeItReplaces) {
  Write("precious");
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  EXPECT_THROW(files.DeleteFile(file, ReadOnlyFile::Refuse), RuntimeError);
  EXPECT_EQ(Save(file), "") << "an empty table touches no file";
  AppendConnectionRow(table.grid);
  boxes.answer = YesNo::No;
  EXPECT_EQ(Save(file), "RESELECT");
  EXPECT_EQ(Read(), "precious");
  EXPECT_EQ(Save(file), "");
  EXPECT_EQ(Read(), kMagic + ",,,,\r\n");
  EXPECT_EQ(Save(file, ConfirmOverwrite::No), "");
  EXPECT_EQ(Save(folder / "new"), "");
  EXPECT_EQ(boxes.shown, std::vector(2, kQuestion));
}

TEST(ListProperty, WhatIsSavedIsLoaded) {
  std::mt19937 random(3);
  MemoryFiles memory;
  Boxes boxes;
  BareTable loaded;
  for (int round = 0; round < 3000; ++round) {
    Rows rows(1 + random() % 5);
    for (auto& row : rows) {
      for (std::string& text : row) {
        while (random() % 5 != 0) text += static_cast<char>(random());
        std::erase_if(
            text, [&](char c) { return c == '\r' || c == '\n' || (c == ',' && &text != &row[4]); });
      }
    }
    BareTable table(rows);
    SaveConnectionList("list", table.grid, ConfirmOverwrite::No, memory, boxes);
    memory.chunk = 1 + random() % 50;
    EXPECT_EQ(LoadConnectionList("list", loaded.grid, memory), "");
    EXPECT_EQ(loaded.Connections(), rows);
  }
  BareTable table({{"a,b", "c", "d", "e", "f,g"}, {"h\ni", "j", "k", "l", "m"}});
  SaveConnectionList("list", table.grid, ConfirmOverwrite::No, memory, boxes);
  EXPECT_EQ(LoadConnectionList("list", loaded.grid, memory), kTooFew);
  EXPECT_EQ(loaded.Connections(), (Rows{{"a", "b", "c", "d", "e,f,g"}, {}}));
}

TEST(GridProperty, RowsKeepTheirOrder) {
  std::mt19937 random(4);
  BareTable table;
  std::vector<std::pair<RowBookmark, std::string>> rows;
  for (int step = 0; step < 3000; ++step) {
    const std::size_t at = random() % (rows.size() + 1);
    if (at == rows.size() || random() % 2 == 0) {
      AppendConnectionRow(table.grid);
      table.grid.SetCol(2);
      table.grid.SetText(std::to_string(step));
      rows.emplace_back(table.grid.Bookmark(table.grid.Row()), table.grid.Text());
    } else {
      table.grid.RemoveItem(static_cast<std::int32_t>(at) + 1);
      rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(at));
    }
    ASSERT_EQ(static_cast<std::size_t>(table.grid.Rows()), rows.size() + 1);
    for (std::int32_t number = 0; const auto& [bookmark, text] : rows) {
      ASSERT_EQ(table.grid.TextAt(++number, 2), text);
      ASSERT_EQ(table.grid.RowOf(bookmark), number);
    }
  }
}

}  // namespace
}  // namespace kestrava::test
