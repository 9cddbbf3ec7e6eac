#include <gtest/gtest.h>
#include <random>

#include "monitor/connection_table.h"
#include "support/memory_desktop.h"

namespace kestrava::test {
namespace {

constexpr const char* kNow = "03/09/26 14:00:00";

TEST(Start, ShowsAnEmptyTableInTheMiddleOfTheScreen) {
  Scenario program;
  const MSFlexGrid& grid = program.window.grdServers;
  EXPECT_EQ(grid.Rows(), 1);
  EXPECT_EQ(grid.Cols(), 6);
  const char* headings[] = {"", "Connection Name", "Address", "Status", "Checking", "Last Checked"};
  const int widths[] = {200, 2600, 1500, 2100, 1200, 1800};
  for (int col = 0; col < 6; ++col) {
    EXPECT_EQ(program.Cell(0, col), headings[col]);
    EXPECT_EQ(grid.ColWidth(col), widths[col]);
  }
  EXPECT_EQ(grid.Row(), 0);
  EXPECT_EQ(grid.Col(), 5);
  EXPECT_FALSE(program.window.cmdCheck.Enabled());
  EXPECT_FALSE(program.window.cmdRemove.Enabled());
  EXPECT_EQ(program.window.Left(), 15360 / 2 - (11190 + 90) / 2);
  EXPECT_EQ(program.window.Top(), 11520 / 2 - (5445 + 375) / 2);
  program.window.cmdCheck.Press();
  EXPECT_EQ(program.desktop.turns, 0) << "an empty table has nothing to check";
  program.window.mnuFileExit.Click.Raise();
  EXPECT_TRUE(program.desktop.ended);
}

TEST(Add, TakesWhatTheDialogTook) {
  Scenario program;
  std::vector<std::string> offered;
  program.desktop.dialogs.push_back([&](Form& form) {
    auto& dialog = dynamic_cast<frmNewConn&>(form);
    offered = {dialog.txtName.Text(), dialog.txtAddress.Text()};
    const std::pair<const char*, const char*> refused[] = {
        {"", ""}, {"", "1.2.3.4"}, {" ", ""}, {"Mail", "1.2.3"}, {"Mail", "1.2.3.4.5"}};
    for (const auto& [name, address] : refused) {
      dialog.txtName.SetText(name);
      dialog.txtAddress.SetText(address);
      dialog.cmdSave.Press();
      EXPECT_TRUE(dialog.Visible());
      EXPECT_FALSE(dialog.SavingConn);
    }
    dialog.txtName.SetText(" <b>Mail</b> ");
    dialog.txtAddress.SetText("...");
    dialog.cmdSave.Press();
    EXPECT_FALSE(dialog.Visible());
  });
  program.window.mnuConnCreate.Click.Raise();
  EXPECT_EQ(offered, (std::vector<std::string>{"New Connection 1", ""}));
  std::vector<std::string> messages;
  for (const auto& [text, icon] : program.desktop.boxes) {
    EXPECT_EQ(icon, MessageIcon::Stop);
    messages.push_back(text);
  }
  EXPECT_EQ(messages,
            (std::vector<std::string>{
                "Connection Name Cannot be Left Blank", "Connection Name Cannot be Left Blank",
                "Connection Address Cannot be Left Blank", "The Address format is not recognised",
                "The Address format is not recognised"}));

  const char* row[] = {"", " <b>Mail</b> ", "...", "Unchecked", "Enabled", "Unchecked"};
  for (int col = 0; col < 6; ++col) EXPECT_EQ(program.Cell(1, col), row[col]);
  EXPECT_EQ(program.Lamp(1), kWhite);
  EXPECT_TRUE(program.window.cmdCheck.Enabled());
  EXPECT_TRUE(program.window.cmdRemove.Enabled());

  program.desktop.dialogs.push_back([](Form& form) {
    auto& dialog = dynamic_cast<frmNewConn&>(form);
    EXPECT_EQ(dialog.txtName.Text(), "New Connection 2");
    dialog.txtAddress.SetText("1.2.3.4");
    dialog.cmdCancel.Press();
  });
  program.window.cmdAdd.Press();
  EXPECT_EQ(program.window.grdServers.Rows(), 2);
  EXPECT_EQ(program.desktop.loaded.size(), 1U) << "the dialog has gone";
}

TEST(CheckPass, WritesEachOutcomeIntoItsRow) {
  Scenario program;
  program.network.At("10.0.0.1") = kAnswering;
  program.network.At("10.0.0.2") = {.connectsAfter = 2};
  program.network.At("10.0.0.4") = {.status = 11018, .connectError = 5};
  program.network.At("10.0.0.6") = {.dataSize = 0, .roundTripTime = 3389};
  const struct {
    const char* address;
    Color lamp;
    const char* status;
  } rows[] = {
      {"10.0.0.1", kGreen, "Online (Ping Response)"},
      {"10.0.0.2", kGreen, "Online (RDP Response)"},
      {"10.0.0.3", kRed, "Offline (No Response)"},
      {"10.0.0.4", kRed, "Offline (ip bad destination)"},
      {"a.b.c.d", kRed, "Offline ()"},
      {"10.0.0.6", kGreen, "Online (RDP Response)"},
  };
  for (const auto& row : rows) program.Add("Same Name", row.address);
  program.window.grdServers.SetRow(6);
  program.window.grdServers.SetCol(4);
  program.window.grdServers.SetText("Disabled");
  MousePointer during = MousePointer::Default;
  program.desktop.onTurn = [&] { during = program.window.Pointer(); };
  program.window.cmdCheck.Press();
  for (int row = 1; row <= 6; ++row) {
    const bool disabled = row == 6;
    const auto& expected = rows[row - 1];
    EXPECT_EQ(program.Lamp(row), disabled ? kWhite : expected.lamp) << row;
    EXPECT_EQ(program.Cell(row, 3), disabled ? "Unchecked" : expected.status);
    EXPECT_EQ(program.Cell(row, 5), disabled ? "Unchecked" : kNow);
  }
  EXPECT_EQ(program.window.State().FailedConnections, std::vector<std::string>(3, "Same Name"));
  EXPECT_EQ(during, MousePointer::Busy);
  EXPECT_EQ(program.window.Pointer(), MousePointer::Default);
  EXPECT_TRUE(program.desktop.boxes.empty());

  // Next time everything answers, and each row has its own reading of the clock.
  for (int host = 1; host <= 5; ++host)
    program.network.At("10.0.0." + std::to_string(host)) = kAnswering;
  program.network.onEcho = [&] { program.clock.now += std::chrono::seconds(1); };
  program.window.cmdCheck.Press();
  for (int row = 1; row <= 4; ++row) {
    EXPECT_EQ(program.Lamp(row), kGreen);
    EXPECT_EQ(program.Cell(row, 3), "Online (Ping Response)");
    EXPECT_EQ(program.Cell(row, 5), "03/09/26 14:00:0" + std::to_string(row));
  }
  EXPECT_EQ(program.window.State().FailedConnections.size(), 1U);
}

TEST(Grid, KeepsItsContractAtTheEdges) {
  Scenario program;
  MSFlexGrid& grid = program.window.grdServers;
  grid.SetRows(4);
  grid.SetRow(3);
  grid.SetRows(2);
  EXPECT_EQ(grid.Row(), 1) << "a current row that was cut off gives way to the last row";
  const std::function<void()> errors[] = {
      [&] { grid.SetRow(2); },     [&] { grid.SetRow(-1); },       [&] { grid.SetCol(6); },
      [&] { grid.RemoveItem(2); }, [&] { grid.RemoveItem(0); },    [&] { grid.SetRows(0); },
      [&] { grid.SetCols(0); },    [&] { grid.SetColWidth(6, 1); }};
  for (const auto& error : errors) EXPECT_THROW(error(), RuntimeError);
  EXPECT_EQ(grid.Rows(), 2);
}

/// Throws whatever a user can do into the turns of running passes. A machine's address ends in the
/// serial number of its row, which the row's name carries too, so a result in a wrong row shows.
void RunRandomPasses(unsigned seed) {
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  const auto chance = [&](int in) { return random() % static_cast<unsigned>(in) == 0; };
  Scenario program;
  MSFlexGrid& grid = program.window.grdServers;
  int serial = 0;
  const auto add = [&] {
    const std::string address = "10.0.1." + std::to_string(++serial % 250);
    program.network.At(address) = chance(2) ? kAnswering : Machine{.connectError = 1000 + serial};
    program.network.At(address).status = serial % 2 ? 11002 : 11003;
    program.Add(address, address);
  };
  for (int row = 0; row < 12; ++row) add();
  bool exits = false;
  int depth = 0;
  program.desktop.onTurn = [&] {
    if (++depth > 3) return void(--depth);
    if (chance(6) && serial < 240) add();
    if (chance(4)) grid.SetRow(static_cast<int>(random() % static_cast<unsigned>(grid.Rows())));
    if (chance(4)) grid.SetCol(static_cast<int>(random() % 6));
    if (chance(5)) program.window.cmdCheck.Press();
    if (chance(9) && grid.Rows() > 1) {
      grid.RemoveItem(1 + static_cast<int>(random() % static_cast<unsigned>(grid.Rows() - 1)));
    }
    if (chance(60)) ConnectionGridSetup(grid);
    if (chance(80)) {
      exits = true;
      program.window.mnuFileExit.Click.Raise();
    }
    --depth;
  };
  for (int pass = 0; pass < 8 && !exits; ++pass) {
    program.window.cmdCheck.Press();
    EXPECT_EQ(program.window.Pointer(), MousePointer::Default);
    for (int row = 1; row < grid.Rows(); ++row) {
      const std::string& status = program.Cell(row, 3);
      const Machine& machine = program.network.At(program.Cell(row, 1));
      EXPECT_EQ(program.Cell(row, 1), program.Cell(row, 2));
      if (status == "Unchecked") continue;
      const char* words = machine.status == 11002 ? "Offline (ip dest net unreachable)"
                                                  : "Offline (ip dest host unreachable)";
      EXPECT_EQ(status, machine.dataSize > 0 ? "Online (Ping Response)" : words) << row;
    }
    if (grid.Rows() == 1) add();
  }
  EXPECT_EQ(program.desktop.ended, exits);
  if (exits) {
    const long turns = program.desktop.turns;
    program.window.cmdCheck.Press();
    EXPECT_LE(program.desktop.turns, turns + 1) << "an ended program pumps no further";
  }
}

TEST(RandomPass, KeepsResultsInTheRowThatWasProbed) {
  for (unsigned seed = 1; seed <= 200; ++seed) RunRandomPasses(seed);
}

}  // namespace
}  // namespace kestrava::test
