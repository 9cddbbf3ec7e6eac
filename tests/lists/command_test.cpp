#include "lists/list_commands.h"
#include "lists_test.h"

namespace kestrava::test {
namespace {

using Texts = std::vector<std::string>;

const std::string kSaved = "Connection List Successfully Saved";
const std::string kNotSaved = "Connection List Save Failed";
const std::string kNotLoaded = "Connection List Load Failed";

struct Program {
  MemoryFiles files;
  ScriptedDialog dialog;
  Boxes boxes;
  std::string lastListFile = "before";
  int ruleApplied = 0;
  BareTable table{{{"Old"}, {"Older"}}};
  ListCommands lists{
      table.grid, files, dialog, boxes, lastListFile, "/opt/k", [this] { ++ruleApplied; }};
};

TEST(ListCommands, LoopUntilAFileServesOrFails) {
  const auto load = &ListCommands::LoadList;
  const auto save = &ListCommands::SaveList;
  const struct {
    void (ListCommands::*command)();
    std::deque<std::string> choices;
    std::size_t showings;
    Texts boxes;
    std::int32_t rows;
    const char* lastListFile;
    YesNo answer = YesNo::Yes;
    int openError = 0;
  } cases[] = {
      {load, {}, 1, {}, 3, "before"},
      {load, {"good"}, 1, {}, 2, "good"},
      {load, {"bare"}, 1, {}, 1, "bare"},
      {load, {"text", "text", "good"}, 3, {}, 2, "good"},
      {load, {"text"}, 2, {}, 1, "before"},
      {load, {"no", "good"}, 1, {kNotLoaded}, 1, "before"},
      {load, {"short"}, 1, {kNotLoaded}, 3, "before"},
      {save, {}, 1, {}, 3, "before"},
      {save, {"new"}, 1, {kSaved}, 3, "new"},
      {save, {"good"}, 2, {kQuestion}, 3, "before", YesNo::No},
      {save, {"good", "good"}, 2, {kQuestion, kQuestion, kSaved}, 3, "good", YesNo::No},
      {save, {"new", "new"}, 1, {kNotSaved}, 3, "before", YesNo::No, 13},
  };
  for (const auto& expected : cases) {
    SCOPED_TRACE(testing::PrintToString(expected.choices));
    const bool loads = expected.command == load;
    Program program;
    program.files.files = {{"text", "text\r\n"},
                           {"bare", kMagic},
                           {"good", kMagic + "a,b,c,d,e\r\n"},
                           {"short", kMagic + ",,,,\nx\n"}};
    program.files.openError = expected.openError;
    program.files.folder = loads ? "/opt/k" : "/opt/k/Lists";
    program.dialog.choices = expected.choices;
    program.boxes.answer = expected.answer;
    (program.lists.*expected.command)();
    const auto* showing = loads ? "open; Kestrava List Files (*.kvl)|*.kvl; "
                                : "save; Kestrava List Files (*.kvl)|*.kvl; /opt/k/Lists";
    EXPECT_EQ(program.dialog.shown, Texts(expected.showings, showing));
    EXPECT_EQ(program.boxes.shown, expected.boxes);
    EXPECT_EQ(program.table.grid.Rows(), expected.rows);
    EXPECT_EQ(program.lastListFile, expected.lastListFile);
    EXPECT_EQ(program.ruleApplied, loads && program.lastListFile != "before" ? 1 : 0);
  }
}

TEST(ListCommands, ANewListIsEmptyAndCountsAsSaved) {
  Program program;
  program.lists.NewList();
  EXPECT_EQ(program.table.grid.Rows(), 1);
  EXPECT_EQ(program.ruleApplied, 1);
  EXPECT_EQ(program.lastListFile, "before");
  program.dialog.choices = {"new"};
  program.lists.SaveList();
  EXPECT_EQ(program.boxes.shown, Texts{kSaved});
  EXPECT_FALSE(program.files.FileExists("new"));
  EXPECT_EQ(program.lastListFile, "new");
}

}  // namespace
}  // namespace kestrava::test
