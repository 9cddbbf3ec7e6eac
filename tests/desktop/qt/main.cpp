#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>

#include "platform/qt/wayland.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const int result = RUN_ALL_TESTS();
  std::fflush(stdout);
  // As the program itself ends.
  if (kestrava::OnWayland()) std::_Exit(result);
  return result;
}
