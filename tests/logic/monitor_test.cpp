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
  program.Check();
  for (int row = 1; const auto& [address, lamp, status, time] : rows) {
    EXPECT_EQ(program.Lamp(row), lamp) << address;
    EXPECT_EQ(program.Cell(row, 3), status);
    EXPECT_EQ(program.Cell(row++, 5), time);
  }
  EXPECT_EQ(program.window.State().FailedConnections, Texts(2, "Same Name"));

  for (auto& [address, machine] : program.network.machines) machine = kAnswering;
  program.Check();
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

/// Does whatever a user can do in the turns of running passes and of open dialogs. The name and the
/// address of a row keep its machine's kind through every edit, so a result in a wrong row shows.
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
    program.network.At(address).echoTurns = below(3);
    return address;
  };
  const auto add = [&] {
    const std::string address = machine(random() % 4);
    program.Add(address, address);
  };
  const auto edit = [&] {
    if (grid.Rows() == 1) return;
    grid.ChooseCell(below(grid.Rows() - 1) + 1, below(6));
    const std::size_t kind = KindOf(program.Cell(grid.Row(), 1));
    program.desktop.onPrompt = [&machine, kind] { return machine(kind); };
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
  const std::function<void()> acts[] = {
      add,
      add,
      edit,
      edit,
      [&] { program.Remove([&](int) { return chance(6); }); },
      [&] { window.cmdCheck.Press(); },
      [&] { window.mnuHelpAbout.Click.Raise(); },
      [&] { program.shell.procedure(MemoryShell::kWindow, 32789, 0, WM_RBUTTONUP); },
      load,
      [&] { window.mnuFileNew.Click.Raise(); },
  };
  for (int row = 0; row < 12; ++row) add();
  long lastEcho = 0;
  program.network.onEcho = [&] { lastEcho = program.desktop.turns; };
  program.desktop.onTurn = [&] {
    EXPECT_LT(grid.Row(), grid.Rows());
    program.clock.now += std::chrono::seconds(below(25));
    window.tmrCheck.Tick.Raise();
    if (program.Checking()) {
      EXPECT_LE(program.desktop.turns, lastEcho + 40) << "the pass stands still";
    } else {
      lastEcho = program.desktop.turns;
    }
    for (int row = 1; row < grid.Rows(); ++row) {
      const std::size_t kind = KindOf(program.Cell(row, 1));
      EXPECT_EQ(KindOf(program.Cell(row, 2)), kind);
      if (program.Cell(row, 3) == "Unchecked") continue;
      EXPECT_EQ(program.Cell(row, 3), kKinds[kind].second) << row;
      EXPECT_EQ(program.Lamp(row), kind < 2 ? kGreen : kRed);
    }
    if (program.desktop.waits > 2 || !chance(3)) return;
    program.desktop.openFor = below(30);
    const auto least = static_cast<std::size_t>(chance(8) ? 10 : 8);
    acts[random() % least]();
    if (chance(800)) window.mnuFileExit.Click.Raise();
  };
  while (program.desktop.turns < 1000 && !program.desktop.ended) program.desktop.Turn();
  if (program.desktop.ended) return;
  program.desktop.onTurn = nullptr;
  program.Finish();
  EXPECT_FALSE(program.Checking());
}

TEST(RandomPass, KeepsResultsInTheRowThatWasProbed) {
  for (unsigned seed = 1; seed <= 60; ++seed) RunRandomPasses(seed);
}

}  // namespace kestrava::test
