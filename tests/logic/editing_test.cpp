#include <gtest/gtest.h>

#include "editing/frmRemoveconn.h"
#include "help/frmAbout.h"
#include "support/memory_desktop.h"

namespace kestrava::test {
namespace {

Texts Names(const Scenario& program) {
  Texts names;
  for (int row = 1; row < program.Rows(); ++row) names.push_back(program.Cell(row, 1));
  return names;
}

TEST(Remove, TakesTheMarkedRowsAway) {
  const struct {
    std::vector<int> marks;
    bool cancel;
    Texts left;
  } cases[] = {{{1, 2}, false, {"A", "D"}},
               {{0, 3}, false, {"B", "B"}},
               {{0, 1, 2, 3}, true, {"A", "B", "B", "D"}},
               {{0, 1, 2, 3}, false, {}}};
  for (const auto& [marks, cancel, left] : cases) {
    Scenario program;
    for (const char* name : {"A", "B", "B", "D"}) program.Add(name, "10.0.0.1");
    program.window.cmdCheck.Press();
    program.InNext<frmRemoveconn>([&](frmRemoveconn& dialog) {
      EXPECT_EQ(dialog.lstConnections.ListCount(), 4);
      EXPECT_EQ(dialog.lstConnections.List(3), "D");
      for (const int mark : marks) dialog.lstConnections.SetSelected(mark, true);
      (cancel ? dialog.cmdCancel : dialog.cmdDelete).Press();
    });
    program.window.cmdRemove.Press();
    EXPECT_EQ(Names(program), left);
    EXPECT_EQ(program.window.cmdRemove.Enabled(), !left.empty());
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
    const char *answer, *cell;
    std::size_t boxes;
  } cases[] = {{1, " new ", " new ", 0},  {1, "", " new ", 0},  {2, "1.2.3", "1.1.1.1", 1},
               {2, "", "1.1.1.1", 1},     {2, "...", "...", 1}, {4, nullptr, "Disabled", 1},
               {4, nullptr, "Enabled", 1}};
  for (const auto& [col, answer, cell, boxes] : cases) {
    program.desktop.prompts = {[=] { return answer; }};
    doubleClick(1, col);
    EXPECT_EQ(program.Cell(1, col), cell);
    EXPECT_EQ(program.desktop.boxes.size(), boxes);
  }
  EXPECT_EQ(program.desktop.questions.front(),
            "Connection Name: Please Enter the New Connection Name: A");
  EXPECT_EQ(program.desktop.questions.back(),
            "Connection Address: Please Enter the New Connection Address: 1.1.1.1");

  // Rows move, then the row goes, while the prompt is open.
  program.desktop.prompts = {[&] { return grid.RemoveItem(1), "moved"; }};
  doubleClick(2, 1);
  EXPECT_EQ(Names(program), Texts{"moved"});
  program.desktop.prompts = {[&] { return grid.SetRows(1), "gone"; }};
  doubleClick(1, 1);
  EXPECT_EQ(Names(program), Texts());
}

TEST(Browser, IsTheFirstValueUpToItsQuote) {
  const MemoryRegistry::Value quoted{"", REG_SZ, "\"/usr/bin/web browser\" --new %u."};
  const struct {
    std::vector<MemoryRegistry::Value> values;
    const char* started;  // nullptr for the message
    bool exists = true;
    bool starts = true;
  } cases[] = {
      {{quoted, {"x", REG_SZ, "y"}}, "\"/usr/bin/web browser\""},
      {{{"", REG_SZ, "a \"b\" c."}}, "a \""},
      {{}, nullptr},
      {{{"", REG_SZ, "no quote at all\""}}, nullptr},
      {{{"", REG_DWORD, quoted.data}}, nullptr},
      {{{std::string(260, 'n'), REG_SZ, quoted.data}}, nullptr},
      {{quoted}, nullptr, false},
      {{quoted}, nullptr, true, false},
  };
  const std::pair<std::string, MessageIcon> message = {"Unable to open URL. Install browser first!",
                                                       MessageIcon::None};
  for (const auto& [values, started, exists, starts] : cases) {
    Scenario program;
    program.registry.values = values;
    program.registry.exists = exists;
    program.registry.starts = starts;
    program.window.mnuHelpCont.Click.Raise();
    const std::string url = " http://www.kestrava.example/KVManual.html";
    EXPECT_EQ(program.registry.started, started ? Texts{started + url} : Texts());
    EXPECT_EQ(program.desktop.boxes, std::vector(started ? 0U : 1U, message));
    EXPECT_EQ(program.registry.openKeys, 0);
  }
}

TEST(About, TellsTheVersionAndLinksToTheWebSite) {
  Scenario program;
  program.registry.values = {{"", REG_SZ, "\"b\"."}};
  program.InNext<frmAbout>([](frmAbout& about) {
    EXPECT_EQ(about.lblTitle.Caption(), "Kestrava Version 1.0.0");
    EXPECT_EQ(about.lblWeb.Caption(), "www.kestrava.example");
    about.lblWeb.Click.Raise();
  });
  program.window.mnuHelpAbout.Click.Raise();
  EXPECT_EQ(program.registry.started, Texts{"\"b\" http://www.kestrava.example"});
}

}  // namespace
}  // namespace kestrava::test
