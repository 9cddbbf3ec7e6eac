#include "lists/list_file.h"

namespace kestrava::test {

using namespace std::string_literals;

TEST_F(ListFile, LoadToTheLetter) {
  const std::string line = "Mail,192.0.2.1,Unchecked,Enabled,02/08/06";
  const std::array<std::string, 5> mail{"Mail", "192.0.2.1", "Unchecked", "Enabled", "02/08/06"};
  const std::string magic = kMagic.substr(0, 26);
  const struct {
    std::string content, result;
    Rows rows;
  } cases[] = {
      {"", kReselect, {}},
      {magic + " \r\nzr_kestrava_connectionlist\r\n" + line, kReselect, {}},
      {magic, "", {}},
      {kMagic + line + "\r\n", "", {mail}},
      {line + "\n\n\r" + magic + "\n" + line + "\r" + kMagic + line, "", {mail, mail}},
      {kMagic + line + "\r\n\r\n" + line, kTooFew, {mail, {}}},
      {kMagic + "a,b,c,d\n" + line, kTooFew, {{"a", "b", "c"}}},
      {kMagic + "a, b,c,d,e,f,,\r\n", "", {{"a", " b", "c", "d", "e,f,,"}}},
      {kMagic + "<b>\0\xFF\xC3\x1A,\t,,,\"\r\n"s, "", {{"<b>\0\xFF\xC3\x1A"s, "\t", "", "", "\""}}},
  };
  for (const auto& [content, result, rows] : cases) {
    SCOPED_TRACE(testing::PrintToString(content));
    Write(content);
    EXPECT_EQ(Load(file), result);
    EXPECT_EQ(table.Connections(), rows);
  }
}

TEST_F(ListFile, WhatIsNoListEndsTheLoad) {
  for (const auto& [content, result] : std::initializer_list<std::pair<std::string, std::string>>{
           {kMagic + std::string(1024 * 1024 + 1, 'x'), "6 - a line of the list is too long"},
           {std::string(2 * 1024 * 1024 + 1, '\r'), "6 - the list has too many lines"},
           {std::string(2 * 1024 * 1024, '\r'), kReselect}}) {
    Write(content);
    EXPECT_EQ(Load(file), result);
  }
  std::filesystem::resize_file(NativePath(file), 256 * 1024 * 1024 + 1);
  EXPECT_EQ(Load(file), SystemError(kFileTooLarge));
}

TEST_F(ListFile, ALongListComesBackAsItWas) {
  for (int row = 1; row <= 18; ++row) {
    AppendConnectionRow(table.grid);
    WriteCell(table.grid, kNameColumn, std::string(1000 * 1000, static_cast<char>('a' + row)));
  }
  const Rows rows = table.Connections();
  EXPECT_EQ(Save(file), "");
  EXPECT_EQ(Load(file), "");
  EXPECT_TRUE(table.Connections() == rows);
}

TEST_F(ListFile, ASaveLeavesNothingOfTheOldList) {
  Write(std::string(100, 'x'));
  std::filesystem::permissions(NativePath(file), std::filesystem::perms(0444));
  AppendConnectionRow(table.grid);
  EXPECT_EQ(Save(file), "") << "one that is for reading alone is replaced";
  EXPECT_EQ(Read(), kMagic + ",,,,\r\n");
  // Windows deletes none of those, and Wine keeps it one.
  std::filesystem::permissions(NativePath(file), std::filesystem::perms(0666));
}

}  // namespace kestrava::test
