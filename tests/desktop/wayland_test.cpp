#include "platform/qt/wayland.h"

#include <QWindow>

#include "desktop/desktop.h"

namespace kestrava::test {
TEST(Wayland, TheIconStandsInTheMenuBarOrAloneAndLeadsBack) {
  if (!OnWayland()) GTEST_SKIP() << "for the run in a Wayland compositor";
  Desktop desktop;
  const auto inMenuBar = [&] { return desktop.window->findChild<QWidget*>("trayStandIn"); };
  ASSERT_TRUE(Until(inMenuBar));
  for (int time = 0; time < 2; ++time) {
    desktop.window->windowHandle()->setWindowState(Qt::WindowMinimized);  // as by its own button
    ASSERT_TRUE(Until([] { return VisibleWindows() == QStringList("trayStandIn"); }));
    InDialogs({[](QWidget* menu) {
      QTest::keyClick(menu, Qt::Key_Down);
      QTest::keyClick(menu, Qt::Key_Return);
    }});
    QTest::keyClick(Widget("trayStandIn"), Qt::Key_Return);
    ASSERT_TRUE(Until([&] { return desktop.window->isVisible() && inMenuBar(); }));
  }
}

}  // namespace kestrava::test
