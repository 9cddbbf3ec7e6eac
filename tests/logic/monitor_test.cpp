#include <gtest/gtest.h>
#include <random>

#include "editing/frmRemoveconn.h"
#include "support/memory_desktop.h"

namespace kestrava::test {
namespace {

constexpr const char* kNow = "03/09/26 14:00:00";

TEST(Add, TakesWhatTheDialogTook) {
  Scenario program;
  program.InNext<frmNewConn>([&](frmNewConn& dialog) {
    EXPECT_EQ(dialog.txtName.Text() + dialog.txtAddress.Text(), "New Connection 1");
    const char* refused[][3] = {{"", "1.2.3.4", "Connection Name Cannot be Left Blank"},
                                {" ", "", "Connection Address Cannot be Left Blank"},
                                {"Mail", "1.2.3", "The Address format is not recognised"},
                                {"Mail", "1.2.3.4.5", "The Address format is not recognised"}};
    for (const auto& [name, address, message] : refused) {
      dialog.txtName.SetText(name);
      dialog.txtAddress.SetText(address);
      dialog.cmdSave.Press();
      EXPECT_TRUE(dialog.Visible());
      EXPECT_EQ(program.desktop.boxes.back(), std::pair(std::string(message), MessageIcon::Stop));
    }
    dialog.txtName.SetText(" <b>Mail</b> ");
    dialog.txtAddress.SetText("...");
    dialog.cmdSave.Press();
    EXPECT_FALSE(dialog.Visible());
  });
  program.window.mnuConnCreate.Click.Raise();
  EXPECT_EQ(program.desktop.boxes.size(), 4U);

  const char* row[] = {"", " <b>Mail</b> ", "...", "Unchecked", "Enabled", "Unchecked"};
  for (int col = 0; col < 6; ++col) EXPECT_EQ(program.Cell(1, col), row[col]);
  EXPECT_EQ(program.Lamp(1), kWhite);
  EXPECT_TRUE(program.window.cmdCheck.Enabled());

  program.InNext<frmNewConn>([](frmNewConn& dialog) {
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
  EXPECT_EQ(program.window.State().FailedConnections, Texts(3, "Same Name"));
  EXPECT_EQ(during, MousePointer::Busy);
  EXPECT_EQ(program.window.Pointer(), MousePointer::Default);

  // Next time everything answers, and each row has its own reading of the clock.
  for (auto& [address, machine] : program.network.machines) machine = kAnswering;
  program.network.onEcho = [&] { program.clock.now += std::chrono::seconds(1); };
  program.window.cmdCheck.Press();
  for (int row = 1; row <= 4; ++row) {
    EXPECT_EQ(program.Lamp(row), kGreen);
    EXPECT_EQ(program.Cell(row, 5), "03/09/26 14:00:0" + std::to_string(row));
  }
  EXPECT_EQ(program.window.State().FailedConnections.size(), 1U);
}

/// Machines of four kinds, and what a pass writes about each kind.
const std::pair<Machine, const char*> kKinds[] = {
    {kAnswering, "Online (Ping Response)"},
    {{.connectsAfter = 2}, "Online (RDP Response)"},
    {{.status = 11002, .connectError = 5}, "Offline (ip dest net unreachable)"},
    {{.status = 11003, .connectError = 5}, "Offline (ip dest host unreachable)"}};

/// The kind that a name or an address such as "10.0.3.47" carries.
std::size_t KindOf(const std::string& text) { return static_cast<std::size_t>(text.at(5) - '0'); }

/// Does whatever a user can do in the turns of running passes. The name and the address of a row
/// keep its machine's kind through every edit, so a result in a wrong row shows.
void RunRandomPasses(unsigned seed) {
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  const auto below = [&](int end) {
    return static_cast<int>(random() % static_cast<unsigned>(end));
  };
  const auto chance = [&](int in) { return below(in) == 0; };
  Scenario program(StoredSettings{{"Interval", "1"}});
  frmMain& window = program.window;
  MSFlexGrid& grid = window.grdServers;
  const auto machine = [&](std::size_t kind) {
    const std::string address = "10.0." + std::to_string(kind) + "." + std::to_string(below(250));
    program.network.At(address) = kKinds[kind].first;
    return address;
  };
  const auto add = [&] {
    const std::string address = machine(random() % 4);
    program.Add(address, address);
  };
  const auto remove = [&] {
    program.InNext<frmRemoveconn>([&](frmRemoveconn& dialog) {
      for (int entry = 0; entry < dialog.lstConnections.ListCount(); ++entry) {
        dialog.lstConnections.SetSelected(entry, chance(6));
      }
      dialog.cmdDelete.Press();
    });
    window.cmdRemove.Press();
  };
  const auto edit = [&] {
    program.desktop.prompts = {[&] { return machine(KindOf(program.Cell(grid.Row(), 1))); }};
    grid.DblClick.Raise();
  };
  const auto load = [&] {
    std::string& list = program.files.files["list"] = "ZR_Kestrava_ConnectionList\r\n";
    for (int row = below(12); row > 0; --row) {
      const std::string address = machine(random() % 4);
      list += address + "," + address + ",Unchecked,Enabled,Unchecked\r\n";
    }
    program.fileDialog.choices = {"list"};
    window.mnuFileLoad.Click.Raise();
  };
  for (int row = 0; row < 12; ++row) add();
  bool exits = false;
  program.desktop.onTurn = [&] {
    EXPECT_LT(grid.Row(), grid.Rows());
    if (chance(6)) add();
    if (chance(4)) grid.SetRow(below(grid.Rows()));
    if (chance(4)) grid.SetCol(below(6));
    if (chance(4)) edit();
    if (chance(5)) window.cmdCheck.Press();
    if (chance(9) && grid.Rows() > 1) remove();
    if (chance(80)) load();
    if (chance(80)) window.mnuFileNew.Click.Raise();
    program.clock.now += std::chrono::seconds(below(50));
    window.tmrCheck.Tick.Raise();
    if ((exits = chance(150))) window.mnuFileExit.Click.Raise();
  };
  for (int pass = 0; pass < 8 && !exits; ++pass) {
    window.cmdCheck.Press();
    EXPECT_EQ(window.Pointer(), MousePointer::Default);
    for (int row = 1; row < grid.Rows(); ++row) {
      const std::size_t kind = KindOf(program.Cell(row, 1));
      EXPECT_EQ(KindOf(program.Cell(row, 2)), kind);
      if (program.Cell(row, 3) == "Unchecked") continue;
      EXPECT_EQ(program.Cell(row, 3), kKinds[kind].second) << row;
      EXPECT_EQ(program.Lamp(row), kind < 2 ? kGreen : kRed);
    }
    if (grid.Rows() == 1) add();
  }
  EXPECT_EQ(program.desktop.ended, exits);
  if (!exits) return;
  const long turns = program.desktop.turns;
  window.cmdCheck.Press();
  EXPECT_LE(program.desktop.turns, turns + 1) << "an ended program pumps no further";
}

TEST(RandomPass, KeepsResultsInTheRowThatWasProbed) {
  for (unsigned seed = 1; seed <= 200; ++seed) RunRandomPasses(seed);
}

}  // namespace
}  // namespace kestrava::test
