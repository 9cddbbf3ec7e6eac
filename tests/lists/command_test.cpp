#include "support/memory_desktop.h"

namespace kestrava::test {

TEST(ListCommands, LoopUntilAFileServesOrFails) {
  const std::string magic = "ZR_Kestrava_ConnectionList\r\n";
  const std::string saved = "Connection List Successfully Saved";
  const std::string notLoaded = "Connection List Load Failed";
  const auto create = &frmMain::mnuFileNew;
  const auto load = &frmMain::mnuFileLoad;
  const auto save = &frmMain::mnuFileSave;
  const struct {
    MenuEntry frmMain::*entry;
    std::deque<std::string> choices;
    std::size_t showings;
    std::string box;
    std::int32_t rows;
    std::string lastListFile;
    std::size_t questions = 0;
    YesNo overwrite = YesNo::Yes;
  } cases[] = {
      {create, {}, 0, "", 1, "before"},
      {load, {}, 1, "", 3, "before"},
      {load, {"bare"}, 1, "", 1, "bare"},
      {load, {"text", "text", "good"}, 3, "", 2, "good"},
      {load, {"no", "good"}, 1, notLoaded, 1, "before"},
      {load, {"short"}, 1, notLoaded, 3, "before"},
      {save, {}, 1, "", 3, "before"},
      {save, {"good"}, 1, saved, 3, "good", 1},
      {save, {"good", "good", "new"}, 3, saved, 3, "new", 2, YesNo::No},
  };
  for (const auto& expected : cases) {
    SCOPED_TRACE(testing::PrintToString(expected.choices));
    Scenario program(StoredSettings{{"LastListFile", "before"}});
    for (const char* name : {"old", "older"}) program.Add(name, "10.0.0.1");
    program.files.files = {{"text", "text\r\n"},
                           {"bare", magic},
                           {"good", magic + "a,b,c,d,e\r\n"},
                           {"short", magic + ",,,,\nx\n"}};
    program.desktop.overwrite = expected.overwrite;
    program.files.folder = expected.entry == load ? "/program" : "/program/Lists";
    program.fileDialog.choices = expected.choices;
    (program.window.*expected.entry).Click.Raise();
    const auto* showing = expected.entry == load
                              ? "open; Kestrava List Files (*.kvl)|*.kvl; "
                              : "save; Kestrava List Files (*.kvl)|*.kvl; /program/Lists";
    EXPECT_EQ(program.fileDialog.shown, std::vector<std::string>(expected.showings, showing));
    std::vector<std::pair<std::string, MessageIcon>> boxes;
    if (!expected.box.empty()) boxes.emplace_back(expected.box, MessageIcon::None);
    EXPECT_EQ(program.desktop.boxes, boxes);
    const auto* question =
        "Overwrite File ? Are you sure you want to overwrite the existing file ?";
    EXPECT_EQ(program.desktop.questions, Texts(expected.questions, question));
    EXPECT_EQ(program.window.grdServers.Rows(), expected.rows);
    EXPECT_EQ(program.window.State().LastListFile, expected.lastListFile);
    EXPECT_TRUE(program.window.cmdCheck.Enabled() == (expected.rows > 1) ||
                expected.box == notLoaded);
  }
}

TEST(ListCommands, AShareThatHangsHoldsUpNothingElse) {
  Scenario program(StoredSettings{{"AutoLoadList", "-1"}, {"LastListFile", "list"}});
  program.files.files["list"] = "ZR_Kestrava_ConnectionList\r\na,b,c,d,e\r\n";
  program.files.hang.hangs = true;
  program.settings.values["Preferences/Interval"] = "7";
  program.desktop.Load(program.window);
  EXPECT_EQ(program.window.State().CheckInterval, 7) << "the start goes on";
  program.Add("typed", "10.0.0.1");
  for (auto* entry :
       {&program.window.mnuFileNew, &program.window.mnuFileLoad, &program.window.mnuFileSave}) {
    entry->Click.Raise();
  }
  EXPECT_EQ(program.desktop.boxes.size(), 2) << "Load and Save are refused with a word";
  EXPECT_EQ(program.Rows(), 2) << "New is refused, too";
  program.window.cmdCheck.SetEnabled(false);
  program.files.hang.waiting.resume();
  ASSERT_EQ(program.Rows(), 2);
  EXPECT_EQ(program.Cell(1, 1), "a") << "the list takes the place of all rows";
  EXPECT_TRUE(program.window.cmdCheck.Enabled());
}

}  // namespace kestrava::test
