#include <gtest/gtest.h>

#include "editing/frmRemoveconn.h"
#include "help/RegAPI.h"
#include "help/frmAbout.h"
#include "support/memory_desktop.h"

namespace kestrava::test {
namespace {

using Texts = std::vector<std::string>;

Texts Names(const Scenario& program) {
  Texts names;
  for (int row = 1; row < program.window.grdServers.Rows(); ++row) {
    names.push_back(program.Cell(row, 1));
  }
  return names;
}

TEST(Remove, TakesTheMarkedRowsAway) {
  const struct {
    std::vector<int> marks;
    bool cancel;
    Texts left;
  } cases[] = {{{1, 2}, false, {"A", "D"}},       {{2, 3}, false, {"A", "B"}},
               {{0, 3}, false, {"B", "B"}},       {{2}, false, {"A", "B", "D"}},
               {{}, false, {"A", "B", "B", "D"}}, {{0, 1, 2, 3}, true, {"A", "B", "B", "D"}},
               {{0, 1, 2, 3}, false, {}}};
  for (const auto& [marks, cancel, left] : cases) {
    Scenario program;
    int host = 0;
    for (const char* name : {"A", "B", "B", "D"}) {
      program.Add(name, "10.0.0." + std::to_string(++host));
    }
    program.window.cmdCheck.Press();
    program.desktop.dialogs.push_back([&](Form& form) {
      auto& dialog = dynamic_cast<frmRemoveconn&>(form);
      EXPECT_EQ(dialog.lstConnections.ListCount(), 4);
      EXPECT_EQ(dialog.lstConnections.List(3), "D");
      for (const int mark : marks) dialog.lstConnections.SetSelected(mark, true);
      (cancel ? dialog.cmdCancel : dialog.cmdDelete).Press();
    });
    program.window.cmdRemove.Press();
    EXPECT_EQ(Names(program), left);
    EXPECT_EQ(program.window.cmdCheck.Enabled(), !left.empty());
    EXPECT_EQ(program.window.cmdRemove.Enabled(), !left.empty());
    for (int row = 1; row < program.window.grdServers.Rows(); ++row) {
      EXPECT_EQ(program.Lamp(row), kRed);
    }
    EXPECT_EQ(program.desktop.loaded.size(), 1U) << "the dialog has gone";
  }
}

TEST(GridEdit, ChangesTheCellThatWasDoubleClicked) {
  Scenario program;
  MSFlexGrid& grid = program.window.grdServers;
  const auto doubleClick = [&](int row, int col) {
    grid.SetRow(row);
    grid.SetCol(col);
    grid.DblClick.Raise();
  };
  doubleClick(0, 1);
  program.Add("A", "1.1.1.1");
  program.Add("B", "2.2.2.2");
  for (const int col : {0, 3, 5}) doubleClick(1, col);
  EXPECT_TRUE(program.desktop.questions.empty());

  const struct {
    int col;
    const char* answer;
    const char* cell;
    bool refused;
  } cases[] = {{1, " new ", " new ", false},
               {1, "", " new ", false},
               {2, "1.2.3", "1.1.1.1", true},
               {2, "", "1.1.1.1", false},
               {2, "a.b.c.d", "a.b.c.d", false}};
  for (const auto& [col, answer, cell, refused] : cases) {
    program.desktop.boxes.clear();
    program.desktop.prompts.push_back([=] { return answer; });
    doubleClick(1, col);
    EXPECT_EQ(program.Cell(1, col), cell);
    EXPECT_EQ(program.desktop.boxes.size(), refused ? 1U : 0U);
  }
  EXPECT_EQ(program.desktop.questions.front(),
            "Connection Name: Please Enter the New Connection Name: A");
  EXPECT_EQ(program.desktop.questions.back(),
            "Connection Address: Please Enter the New Connection Address: 1.1.1.1");

  for (const char* word : {"Disabled", "Enabled"}) {
    doubleClick(1, 4);
    EXPECT_EQ(program.Cell(1, 4), word);
  }
  grid.SetText("enabled");
  doubleClick(1, 4);
  EXPECT_EQ(program.Cell(1, 4), "Enabled");

  // Rows move, then the row goes, while the prompt is open.
  program.desktop.prompts.push_back([&] { return grid.RemoveItem(1), "moved"; });
  doubleClick(2, 1);
  EXPECT_EQ(Names(program), Texts{"moved"});
  program.desktop.prompts.push_back([&] { return grid.SetRows(1), "gone"; });
  doubleClick(1, 1);
  EXPECT_EQ(Names(program), Texts());
}

TEST(Browser, IsTheFirstValueUpToItsQuote) {
  const std::string quoted = std::string("\"/usr/bin/web browser\" --new %u") + '\0';
  const struct {
    std::vector<MemoryRegistry::Value> values;
    const char* started;  // nullptr for the message
  } cases[] = {
      {{{"", REG_SZ, quoted}, {"x", REG_SZ, "y"}}, "\"/usr/bin/web browser\""},
      {{{"", REG_SZ, std::string("a \"b\" c") + '\0'}}, "a \""},
      {{}, nullptr},
      {{{"", REG_SZ, ""}}, nullptr},
      {{{"", REG_SZ, std::string("\"") + '\0'}}, nullptr},
      {{{"", REG_SZ, "no quote at all\""}}, nullptr},
      {{{"", 2, quoted}}, nullptr},
      {{{"", REG_DWORD, "\"\"\"\""}}, nullptr},
      {{{std::string(260, 'n'), REG_SZ, quoted}}, nullptr},
      {{{"", REG_SZ, std::string(4097, '"')}}, nullptr},
  };
  for (const auto& [values, started] : cases) {
    Scenario program;
    program.registry.values = values;
    program.window.mnuHelpCont.Click.Raise();
    const std::string url = " http://www.kestrava.example/KVManual.html";
    EXPECT_EQ(program.registry.started, started ? Texts{started + url} : Texts());
    EXPECT_EQ(program.desktop.boxes.size(), started ? 0U : 1U);
    EXPECT_EQ(program.registry.openKeys, 0);
  }

  Scenario program;
  program.registry.values = {{"", REG_SZ, quoted}};
  program.registry.starts = false;
  program.window.mnuHelpCont.Click.Raise();
  program.registry.starts = true;
  program.registry.exists = false;
  program.window.mnuHelpCont.Click.Raise();
  const std::pair<std::string, MessageIcon> message = {"Unable to open URL. Install browser first!",
                                                       MessageIcon::None};
  EXPECT_EQ(program.desktop.boxes, (std::vector{message, message}));

  // Every value is read, however many there are.
  program.registry.exists = true;
  for (int value = 1; value < 250; ++value) {
    program.registry.values.push_back({std::to_string(value), REG_DWORD, "\xFF\xFF\xFF\xFF"});
  }
  const auto table =
      RegistryValueTable(program.registry, HKEY_CLASSES_ROOT, "http\\shell\\open\\command");
  ASSERT_EQ(table.size(), 250U);
  EXPECT_EQ(table[249].name, "249");
  EXPECT_EQ(std::get<std::int32_t>(table[249].data), -1);
}

TEST(About, TellsTheVersionAndLinksToTheWebSite) {
  Scenario program;
  program.registry.values = {{"", REG_SZ, std::string("\"b\"") + '\0'}};
  program.desktop.dialogs.push_back([](Form& form) {
    auto& about = dynamic_cast<frmAbout&>(form);
    EXPECT_EQ(about.lblTitle.Caption(), "Kestrava Version 1.0.0");
    EXPECT_EQ(about.lblWeb.Caption(), "www.kestrava.example");
    about.lblWeb.Click.Raise();
    EXPECT_TRUE(about.Visible());
  });
  program.window.mnuHelpAbout.Click.Raise();
  EXPECT_EQ(program.registry.started, Texts{"\"b\" http://www.kestrava.example"});
}

}  // namespace
}  // namespace kestrava::test
