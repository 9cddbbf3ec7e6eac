#include "support/memory_desktop.h"

namespace kestrava::test {

using namespace std::chrono_literals;

TEST(Schedule, ChecksWhereATickMeetsTheDueMinuteOfTheClock) {
  Scenario program;
  program.network.At("10.0.0.1") = kAnswering;
  program.Add("A", "10.0.0.1");
  int passes = 0;
  program.network.onEcho = [&] { ++passes; };
  const auto midnight = program.clock.now - 14h;
  const struct {
    std::chrono::seconds clock;  // what it shows at the tick, from the first day on
    int passes;
    const char* next;
  } ticks[] = {
      {14h + 14min + 59s, 0, "14:15"},
      {14h + 15min + 59s, 1, "14:30"},
      {14h + 15min + 59s, 1, "14:30"},  // the same minute is due once
      {14h + 31min, 1, "14:30"},        // late: the machine slept over the minute
      {15h + 30min, 1, "14:30"},        // nothing is made up for
      {24h + 14h + 30min, 2, "14:45"},  // the same reading a day later
      {24h + 15h + 44min, 2, "14:45"},  // set forward over the minute: summer time begins
      {24h + 14h + 45min, 3, "15:00"},  // set back onto it
      {24h + 15h + 30s, 4, "15:15"},
      {24h + 14h + 15min + 30s, 4, "15:15"},  // set back over it: winter time begins
      {24h + 15h + 30s, 4, "15:15"},          // it was done
      {24h + 15h + 15min, 5, "15:30"},
  };
  for (const auto& [clock, expected, next] : ticks) {
    program.clock.now = midnight + clock;
    program.window.tmrCheck.Tick.Raise();
    program.Finish();
    EXPECT_EQ(passes, expected) << next;
    EXPECT_EQ(program.window.State().NextCheckTime, next);
  }
}

TEST(Schedule, CountsFromTheEndOfThePass) {
  Scenario program(StoredSettings{{"Interval", "1"}});
  program.network.At("10.0.0.1") = kAnswering;
  program.Add("A", "10.0.0.1");
  const SharedState& state = program.window.State();
  const auto tick = [&] {
    program.clock.now +=
        floor<std::chrono::seconds>(std::chrono::milliseconds(program.window.tmrCheck.Interval()));
    program.window.tmrCheck.Tick.Raise();
  };
  tick();
  EXPECT_TRUE(program.Checking());
  program.desktop.onTurn = tick;
  program.desktop.Turn();
  EXPECT_EQ(state.NextCheckTime, "14:01") << "the pass hasn't ended yet";
  program.Finish();
  EXPECT_EQ(state.NextCheckTime, "14:04");

  // The due minute falls into a pass that the user began: that pass is taken as the timed one.
  program.network.calls.clear();
  program.window.cmdCheck.Press();
  program.desktop.Turn();
  EXPECT_EQ(state.NextCheckTime, "14:05");
  program.Finish();
  EXPECT_EQ(std::ranges::count(program.network.calls, "cleanup"), 1);
  EXPECT_EQ(state.NextCheckTime, "14:06");

  // Summer time begins within the interval.
  program.clock.ahead = 60min;
  // With an empty table the due time moves on all the same.
  program.window.grdServers.SetRows(1);
  tick();
  EXPECT_EQ(state.NextCheckTime, "15:07");
}

}  // namespace kestrava::test
