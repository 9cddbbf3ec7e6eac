#include <random>

#include "support/memory_desktop.h"

namespace kestrava::test {

TEST(CheckPass, WritesEachOutcomeIntoItsRow) {
  Scenario program;
  program.network.At("10.0.0.1") = kAnswering;
  program.network.At("10.0.0.2") = {.connectsAfter = 2};
  program.network.At("10.0.0.3") = {.dataSize = 0, .roundTripTime = 3389};
  program.network.onEcho = [&] { program.clock.now += std::chrono::seconds(1); };
  const std::tuple<const char*, Color, const char*, const char*> rows[] = {
      {"10.0.0.1", kGreen, "Online (Ping Response)", "03/09/26 14:00:01"},
      {"10.0.0.2", kGreen, "Online (RDP Response)", "03/09/26 14:00:02"},
      {"10.0.0.3", kGreen, "Online (RDP Response)", "03/09/26 14:00:03"},
      {"10.0.0.4", kRed, "Offline (No Response)", "03/09/26 14:00:04"},
      {"a.b.c.d", kRed, "Offline ()", "03/09/26 14:00:04"},
      {"disa.b.l.ed", kWhite, "Unchecked", "Unchecked"}};
  for (const auto& row : rows) program.Add("Same Name", std::get<0>(row));
  program.window.grdServers.SetCol(4);
  program.window.grdServers.SetText("Disabled");
  program.window.cmdCheck.Press();
  for (int row = 1; const auto& [address, lamp, status, time] : rows) {
    EXPECT_EQ(program.Lamp(row), lamp) << address;
    EXPECT_EQ(program.Cell(row, 3), status);
    EXPECT_EQ(program.Cell(row++, 5), time);
  }
  EXPECT_EQ(program.window.State().FailedConnections, Texts(2, "Same Name"));

  for (auto& [address, machine] : program.network.machines) machine = kAnswering;
  program.window.cmdCheck.Press();
  EXPECT_EQ(program.Lamp(4), kGreen);
  EXPECT_EQ(program.Cell(4, 3), "Online (Ping Response)");
  EXPECT_EQ(program.window.State().FailedConnections.size(), 1U) << "each pass has its own";
}

/// Machines of four kinds, and what a pass writes about each kind.
const std::pair<Machine, const char*> kKinds[] = {
    {kAnswering, "Online (Ping Response)"},
    {{.connectsAfter = 2}, "Online (RDP Response)"},
    {{.status = 11002, .connectError = 5}, "Offline (ip dest net unreachable)"},
    {{.status = 11003, .connectError = 5}, "Offline (ip dest host unreachable)"}};

/// The kind that a name or an address such as "10.0.3.47" carries.
static std::size_t KindOf(const std::string& text) {
  return static_cast<std::size_t>(text.at(5) - '0');
}

/// Does whatever a user can do in the turns of running passes. The name and the address of a row
/// keep its machine's kind through every edit, so a result in a wrong row shows.
static void RunRandomPasses(unsigned seed) {
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
  const auto remove = [&] { program.Remove([&](int) { return chance(6); }); };
  program.desktop.onPrompt = [&] { return machine(KindOf(program.Cell(grid.Row(), 1))); };
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
  long lastTurn = 0;
  program.desktop.onTurn = [&] {
    EXPECT_LT(grid.Row(), grid.Rows());
    if (chance(6)) add();
    if (chance(4)) grid.SetRow(below(grid.Rows()));
    if (chance(4)) grid.SetCol(below(6));
    if (chance(4)) grid.DblClick.Raise();
    if (chance(5)) window.cmdCheck.Press();
    if (chance(9) && grid.Rows() > 1) remove();
    if (chance(80)) load();
    if (chance(80)) window.mnuFileNew.Click.Raise();
    program.clock.now += std::chrono::seconds(below(50));
    window.tmrCheck.Tick.Raise();
    lastTurn = program.desktop.turns;
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
  EXPECT_LE(program.desktop.turns, lastTurn + 1) << "an ended program pumps no further";
}

TEST(RandomPass, KeepsResultsInTheRowThatWasProbed) {
  for (unsigned seed = 1; seed <= 200; ++seed) RunRandomPasses(seed);
}

}  // namespace kestrava::test
