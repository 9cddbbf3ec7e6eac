#include "platform/qt/wayland.h"

#include <QTest>
#include <QWindow>

#include "desktop/desktop.h"
#include "desktop/qt/widgets.h"

namespace kestrava::test {
TEST(Wayland, TheIconStandsInTheMenuBarOrAloneAndLeadsBack) {
  if (!OnWayland()) GTEST_SKIP() << "for the run in a Wayland compositor";
  Desktop desktop;
  const auto inMenuBar = [&] { return Find(desktop.window, "trayStandIn"); };
  ASSERT_TRUE(Until(inMenuBar));
  for (int time = 0; time < 2; ++time) {
    MainWindow()->windowHandle()->setWindowState(Qt::WindowMinimized);  // as by its own button
    ASSERT_TRUE(Until([] { return VisibleWindows() == std::vector<std::string>{"trayStandIn"}; }));
    InDialogs({[](Part menu) {
      QTest::keyClick(WidgetOf(menu), Qt::Key_Down);
      Press(menu, Key::Enter);
    }});
    Press(Find("trayStandIn"), Key::Enter);
    ASSERT_TRUE(Until([&] { return IsUp(desktop.window) && inMenuBar(); }));
  }
}

}  // namespace kestrava::test
