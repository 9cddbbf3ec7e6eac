#include <fstream>
#include <map>

#include "desktop/desktop.h"
#include "help/web_pages.h"
#include "platform/message_box.h"

namespace kestrava::test {
/// Reads a message box and closes it.
static auto Tells(const std::string& message) {
  return [=](Part box) {
    EXPECT_EQ(Read(box), "Kestrava|" + message + "||x");
    Close(box);
  };
}

constexpr const char* kWholeMenu =
    "&New Connection List|&Load Connection List|&Save Connection List|"
    "Auto Load Last Connection List|Send to Tray|E&xit|Create New Connection|&Preferences|"
    "Contents|&About|";

TEST(Windows, AddTakesWhatTheDialogTook) {
  Desktop desktop;
  const std::map<std::string, std::string> names = {{"txtName", "Connection Name"},
                                                    {"txtAddress", "Connection IP Address"}};
  const std::tuple<const char*, const char*, const char*> refused[] = {
      {"txtAddress", "", "Connection Address Cannot be Left Blank"},
      {"txtName", "", "Connection Name Cannot be Left Blank"},
      {"txtName", " <b>Mail</b> ", "Connection Address Cannot be Left Blank"},
      {"txtAddress", "1.2.3", "The Address format is not recognised"},
      {"txtAddress", "1.2.3.4.5", "The Address format is not recognised"}};
  Acts acts = {[&](Part dialog) {
    EXPECT_EQ(FocusIn(dialog), names.at("txtName"));
    for (const auto& [field, text, message] : refused) {
      Enter(text, field)(dialog);
      EXPECT_EQ(FocusIn(dialog), names.at(field));
    }
    Fill(Find(dialog, "txtAddress"), "1.2.3.4");
    Press(Find(dialog, "cmdSave"), Key::Space);
  }};
  for (const auto& [field, text, message] : refused) acts.push_back(Tells(message));
  acts.push_back([](Part dialog) {
    EXPECT_EQ(TextOf(Find(dialog, "txtName")), "New Connection 2");
    Fill(Find(dialog, "txtAddress"), "...");
    Press(dialog, Key::Escape);
  });
  InDialogs(acts);
  Click(Find("cmdAdd"));
  EXPECT_EQ(FocusIn(desktop.window), "Add New Connection");
  Pick("mnuConnCreate");
  ASSERT_EQ(desktop.grid.Rows(), 2);
  const char* row[] = {"", " <b>Mail</b> ", "1.2.3.4", "Unchecked", "Enabled", "Unchecked"};
  for (int column = 0; column < 6; ++column) EXPECT_EQ(desktop.Cell(1, column), row[column]);
  EXPECT_EQ(desktop.grid.BackColorAt(1, kLampColumn), kWhite);
}

TEST(Windows, RemoveTakesTheMarkedRowsAloneAlsoFromUnderAPass) {
  const std::pair<const char*, const char*> cases[] = {{"", "1;2;3;4;"},
                                                       {"23", "1;4;"},
                                                       {"34", "1;2;"},
                                                       {"14", "2;3;"},
                                                       {"2", "1;3;4;"},
                                                       {"1234", ""},
                                                       {"1234 of an old list", ";"}};
  for (const auto& [marked, left] : cases) {
    for (const bool inPass : {false, true}) {
      SCOPED_TRACE(marked);
      Desktop desktop;
      Add("...");
      desktop.grid.SetRows(1);
      for (const auto& [name, address] : {std::pair("A", "1"), {"B", "2"}, {"B", "3"}, {"", "4"}}) {
        desktop.AddRow(name, address);
      }
      InDialogs({[&, marked = std::string(marked)](Part dialog) {
        std::vector<std::string> names = {"A", "B", "B", ""};
        EXPECT_EQ(Entries(dialog), names);
        for (int entry = 0; entry < 4; ++entry) {
          if (marked.find(std::to_string(entry + 1)) == marked.npos) continue;
          Tick(dialog, entry);
          names.at(static_cast<std::size_t>(entry)).insert(0, "*");
        }
        EXPECT_EQ(Entries(dialog), names);
        if (marked.ends_with("old list")) Desktop::ReplaceRows(desktop.main);
        Click(Find(dialog, "cmdDelete"));
      }});
      if (inPass) Click(Find("cmdCheck"));
      Click(Find("cmdRemove"));
      desktop.Finish();
      EXPECT_EQ(desktop.Texts(kAddressColumn), left);
      const auto* status = inPass && *left != ';' ? "Offline (ip bad destination)" : "";
      for (int row = 1; row < desktop.grid.Rows(); ++row) {
        EXPECT_EQ(desktop.Cell(row, kStatusColumn), status);
      }
      EXPECT_EQ(IsEnabled(Find("cmdCheck")), *left != '\0');
      EXPECT_EQ(IsEnabled(Find("cmdRemove")), *left != '\0');
    }
  }
}

TEST(Windows, EditChangesTheCellThatWasDoubleClickedWhereverItsRowGoes) {
  const std::string name = "Connection Name|Please Enter the New Connection Name|B\u00FC[U+00AD]|";
  const std::string address = "Connection Address|Please Enter the New Connection Address|1..2.3|";
  const auto nothing = [](frmMain&) {};
  const auto check = [](frmMain& main) { main.cmdCheck.Press(); };
  const auto removeAbove = [](frmMain& main) { main.grdServers.RemoveItem(1); };
  const auto removeIt = [](frmMain& main) { main.grdServers.RemoveItem(2); };
  const struct {
    Column column;
    std::string question, answer, texts;  // the texts of the column afterwards
    void (*meanwhile)(frmMain&);
  } cases[] = {
      {kNameColumn, name, "", "A;B\374\255;C;", nothing},
      {kNameColumn, name, "B\u00FC[U+00AD]", "A;B\374\255;C;", nothing},
      {kNameColumn, name, " ,\r\n", "A; ,  ;C;", nothing},
      {kNameColumn, name, "X", "A;X;C;", check},
      {kNameColumn, name, "X", "X;C;", removeAbove},
      {kNameColumn, name, "X", "A;C;", removeIt},
      {kNameColumn, name, "X", ";", Desktop::ReplaceRows},
      {kNameColumn, name, "Cancel", "A;B\374\255;C;", nothing},
      {kAddressColumn, address, "1.2.3", "1..2.3;1..2.3;1..2.3;", nothing},
      {kAddressColumn, address, "a.b.c.d", "1..2.3;a.b.c.d;1..2.3;", nothing},
      {kAddressColumn, address, "...", "...;1..2.3;", removeAbove},
  };
  for (const auto& [column, question, answer, texts, meanwhile] : cases) {
    SCOPED_TRACE(texts);
    Desktop desktop;
    for (const char* row : {"A", "B\xFC\xAD", "C"}) desktop.AddRow(row);
    std::string asked;
    InDialogs({[&, &answer = answer, &meanwhile = meanwhile](Part dialog) {
      asked = Read(dialog);
      meanwhile(desktop.main);
      if (answer == "1.2.3") InDialogs({Tells("Not a Valid Address Format")});
      if (answer == "Cancel") {
        Fill(Find(dialog, ""), answer);
        return Press(dialog, Key::Escape);
      }
      Enter(answer)(dialog);
    }});
    desktop.DoubleClick(2, column);
    EXPECT_EQ(asked, question);
    EXPECT_EQ(desktop.Texts(column), texts);
    for (const char* word : {"Enabled", "Disabled", "Enabled"}) {
      desktop.DoubleClick(1, kCheckingColumn);
      EXPECT_EQ(desktop.Cell(1, kCheckingColumn), word);
    }
  }
}

TEST(Windows, TheMenuWorksAndAListAndThePreferencesOutliveTheProgram) {
  const std::string list = HomeFolder() + "my list, \u00E4.kvl";
  bool balloons = false;
  {
    Desktop desktop;
    balloons = desktop.main.State().ShowBalloons;
    Add("127.0.0.1");
    Add("1..2.3");
    desktop.Check();
    Settle();
    EXPECT_TRUE(ColorsAt(1, kLampColumn).contains(0x00FF00));
    EXPECT_TRUE(ColorsAt(2, kLampColumn).contains(0xFF0000));
    InDialogs({Enter(list), &Close, Enter(list), [](Part dialog) {
                 for (const char* box : {"chkTray", "chkBalloon"}) Click(Find(dialog, box));
                 Enter("77", "txtInterval")(dialog);
               }});
    Pick("mnuFileSave");
    Pick("mnuFileNew");
    EXPECT_EQ(desktop.grid.Rows(), 1);
    Pick("mnuFileLoad");
    Pick("mnuConnPref");
    Pick("mnuFileAuto");
    Pick("mnuFileExit");
  }
  const Desktop desktop;
  ASSERT_EQ(desktop.grid.Rows(), 3);
  EXPECT_EQ(desktop.Cell(1, kStatusColumn), "Online (Ping Response)");
  EXPECT_EQ(desktop.Cell(2, kStatusColumn), "Offline ()");
  EXPECT_EQ(desktop.main.State().LastListFile, list);
  EXPECT_EQ(desktop.main.State().CheckInterval, 77);
  EXPECT_NE(desktop.main.State().ShowBalloons, balloons);
  EXPECT_NE(MenuNow(), kWholeMenu);
  Pick("mnuFileAuto");
  EXPECT_EQ(MenuNow(), kWholeMenu);
}

TEST(Windows, GoToTheTrayAndBack) {
  const Desktop desktop("-1");
  for (const bool minimizes : {false, true}) {
    if (minimizes) {
      Minimize(desktop.window);
    } else {
      Pick("mnuFileTray");
    }
    Settle();
    EXPECT_FALSE(IsUp(desktop.window));
    Pick("mnuFileRestore");
    EXPECT_TRUE(IsUp(desktop.window));
    EXPECT_EQ(MenuNow(), kWholeMenu);
  }
}

TEST(Windows, GoToTheTrayWithADialogAndItsBoxAndComeBackToGoOn) {
  Desktop desktop;
  int rows = 1;
  for (const std::size_t minimized : {0U, 1U, 2U}) {
    InDialogs({Enter("", "txtAddress"), [&](Part box) {
                 const std::vector<Part> windows = {desktop.window, Find("frmNewConn"), box};
                 Minimize(windows.at(minimized));
                 Settle();
                 for (const Part window : windows) EXPECT_FALSE(IsUp(window));
                 Pick("mnuFileRestore");
                 for (const Part window : windows) EXPECT_TRUE(IsUp(window));
                 EXPECT_TRUE(Until([&] { return IsActive(box); }));
                 EXPECT_EQ(MenuNow(), "Send to Tray|E&xit|");
                 for (const char* entry : {"mnuFileNew", "mnuConnCreate"}) Pick(entry);
                 Click(Find("cmdCheck"));
                 EXPECT_FALSE(PointerIsBusy());
                 EXPECT_EQ(desktop.grid.Rows(), rows);
                 InDialogs({Enter("1..2.3", "txtAddress")});
                 Close(box);
               }});
    Click(Find("cmdAdd"));
    EXPECT_EQ(desktop.grid.Rows(), ++rows);
  }
  Pick("mnuFileNew");
  EXPECT_EQ(desktop.grid.Rows(), 1);
}

TEST(Windows, HelpOpensItsPagesInTheBrowser) {
  const std::string file = HomeFolder() + "record";
  UseBrowser(file);
  std::string pages;
  const auto opens = [&](const std::string& url) {
    pages += "1 " + url + "\n";
    const auto seen = [&] {
      std::ifstream record(file);
      return std::string(std::istreambuf_iterator<char>(record), {});
    };
    EXPECT_TRUE(Until([&] { return seen().size() >= pages.size(); }));
    EXPECT_EQ(seen(), pages);
  };
  const Desktop desktop;
  TakeKeys(desktop.window);
  Press(desktop.window, Key::F1);
  opens(ManualUrl());
  bool looked = false;
  InDialogs({[&](Part about) {
    looked = true;
    Click(Find(about, "lblWeb"));
    opens(WebSiteUrl());
    EXPECT_TRUE(IsUp(about));
    Press(about, Key::Escape);
  }});
  Press(desktop.window, Key::F2);
  EXPECT_TRUE(looked);
}

TEST(Windows, CloseEndsARunningPassAtOnce) {
  Desktop desktop;
  for (int row = 0; row < 5; ++row) desktop.AddRow("machine");
  desktop.main.cmdCheck.Press();
  EXPECT_TRUE(PointerIsBusy());
  Close(desktop.window);
  Settle();
  EXPECT_EQ(desktop.Cell(2, kStatusColumn), "");
  EXPECT_EQ(VisibleWindows().size(), 0U);
}

}  // namespace kestrava::test
