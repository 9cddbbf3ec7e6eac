#include <thread>

#include "desktop/desktop.h"

namespace kestrava::test {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr auto kInterval = 1000ms;
constexpr TimerSpec kTimers[] = {{"timer", kInterval.count(), true}};
constexpr FormSpec kForm = {.name = "form",
                            .caption = "",
                            .style = FormStyle::ToolWindow,
                            .width = 1,
                            .height = 1,
                            .controls = {},
                            .menu = {},
                            .timers = kTimers,
                            .defaultButton = "",
                            .cancelButton = ""};

TEST(NativeTimer, ATickThatComesLatePutsOffNoneOfThoseToCome) {
  Form form(kForm);
  Timer timer(form, "timer");
  const auto system = MakeSystem();
  const Platform desktop = system->Services();
  const auto start = steady_clock::now();
  const LoadedForm loaded(desktop.windows, form);
  // The first tick comes half an interval late, however slow the machine is.
  const auto lateness = [start] { return (steady_clock::now() - start) % kInterval; };
  std::this_thread::sleep_for(kInterval);
  while (lateness() < 450ms || lateness() > 550ms) std::this_thread::sleep_for(10ms);
  std::string order;
  timer.Tick.Connect([&order] {
    if (order.empty()) {
      // Due between the next tick and where that would be if it counted from this one.
      After(kInterval * 3 / 4, [&order] { order += " reference"; });
    }
    order += " tick";
  });
  const auto come = [&order] { return order.find("reference") != order.npos; };
  EXPECT_TRUE(Until(come));
  EXPECT_TRUE(order.starts_with(" tick tick reference")) << order;
  for (const bool enabled : {false, true}) {
    order = enabled ? "on" : "off";
    timer.SetEnabled(enabled);
    After(kInterval * 3 / 2, [&order] { order += " reference"; });
    EXPECT_TRUE(Until(come));
    EXPECT_TRUE(order.starts_with(enabled ? "on tick reference" : "off reference")) << order;
  }
}

}  // namespace kestrava::test
