#include <QApplication>
#include <QIcon>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <functional>

#include "monitor/frmMain.h"
#include "platform/linux/termination_signals.h"
#include "platform/qt/linux_desktop.h"
#include "platform/qt/session_bus.h"

namespace {

constexpr int kExitUsage = 2;

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 22, 32, 48, 64}) {
    icon.addFile(QStringLiteral(":/kestrava-%1.png").arg(size), QSize(size, size));
  }
  return icon;
}

}  // namespace

int main(int argc, char* argv[]) {
  using namespace kestrava;

  if (argc > 1) {
    std::fputs("kestrava: takes no arguments\n", stderr);
    return kExitUsage;
  }

  // A file that may grow no further, or a reader of standard error that has gone, is an error of
  // the write that meets it. Programs that are started find every signal as it is by default.
  for (const int signal : {SIGXFSZ, SIGPIPE}) std::signal(signal, SIG_IGN);
  std::function<void()> unloadMainWindow;
  TerminationSignals terminationSignals([&unloadMainWindow] { unloadMainWindow(); });

  QApplication::setOrganizationName(QStringLiteral("Kestrava"));
  QApplication::setApplicationName(QStringLiteral("Kestrava"));
  QApplication::setDesktopFileName(QStringLiteral("kestrava"));
  WithholdSilentSessionBus();
  QApplication application(argc, argv);
  // The application object has just taken over the user's locale. Dates follow it, but numbers in
  // stored texts always have a point.
  std::setlocale(LC_NUMERIC, "C");
  // All texts are English; a translated toolkit must not mirror the windows alone.
  QApplication::setLayoutDirection(Qt::LeftToRight);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(ProgramIcon());

  LinuxDesktop desktop;
  frmMain mainWindow(desktop.Services());
  desktop.NotificationArea().ExportMenu(mainWindow, mainWindow.mnufile, mainWindow.mnuFileRestore);
  unloadMainWindow = [&] { desktop.Windows().Unload(mainWindow); };
  desktop.EventLoop().Watch(terminationSignals);
  QObject::connect(&desktop.EventLoop(), &QtEventLoop::Ended, &application,
                   [] { QApplication::exit(); });

  desktop.Windows().Load(mainWindow);
  if (!mainWindow.State().InTray) desktop.Windows().Show(mainWindow);
  if (!desktop.EventLoop().HasEnded()) QApplication::exec();
  // The end of the desktop session ends the loop without unloading anything.
  desktop.Windows().Unload(mainWindow);
  return 0;
}
