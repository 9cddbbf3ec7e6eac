#include <QApplication>
#include <QFile>
#include <QIcon>
#include <clocale>
#include <cstdio>
#include <functional>

#include "monitor/frmMain.h"
#include "platform/linux/linux_clock.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/linux_icmp.h"
#include "platform/linux/linux_processes.h"
#include "platform/linux/linux_registry.h"
#include "platform/linux/linux_remote_desktop.h"
#include "platform/linux/linux_sockets.h"
#include "platform/linux/linux_version_info.h"
#include "platform/linux/termination_signals.h"
#include "platform/qt/qt_common_dialog.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_message_boxes.h"
#include "platform/qt/qt_prompt_boxes.h"
#include "platform/qt/qt_settings_store.h"
#include "platform/qt/qt_window_system.h"
#include "platform/qt/tray/qt_notification_area.h"
#include "platform/qt/tray/qt_window_messages.h"

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

  std::function<void()> unloadMainWindow;
  TerminationSignals terminationSignals([&unloadMainWindow] { unloadMainWindow(); });

  QApplication::setOrganizationName(QStringLiteral("Kestrava"));
  QApplication::setApplicationName(QStringLiteral("Kestrava"));
  QApplication::setDesktopFileName(QStringLiteral("kestrava"));
  QApplication application(argc, argv);
  // The application object has just taken over the user's locale. Dates follow it, but numbers in
  // stored texts always have a point.
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(ProgramIcon());

  LinuxClock clock;
  LinuxIcmp icmp;
  LinuxSockets sockets;
  LinuxRemoteDesktop rdp;
  LinuxFileSystem fileSystem;
  LinuxRegistry registry;
  LinuxProcesses processes;
  QtSettingsStore settings;
  QtEventLoop eventLoop;
  QtMessageBoxes messageBoxes(eventLoop);
  QtPromptBoxes promptBoxes(eventLoop);
  QtCommonDialog commonDialog(eventLoop);
  QtWindowSystem windows(eventLoop);
  QtWindowMessages messages(windows, eventLoop);
  QtNotificationArea notificationArea(messages);
  LinuxVersionInfo versions;
  frmMain mainWindow(
      {.windows = windows,
       .eventLoop = eventLoop,
       .messageBoxes = messageBoxes,
       .promptBoxes = promptBoxes,
       .commonDialog = commonDialog,
       .clock = clock,
       .icmp = icmp,
       .sockets = sockets,
       .rdp = rdp,
       .settings = settings,
       .fileSystem = fileSystem,
       .notificationArea = notificationArea,
       .versions = versions,
       .messages = messages,
       .registry = registry,
       .processes = processes,
       .programFolder = QFile::encodeName(QApplication::applicationDirPath()).toStdString()});

  notificationArea.ExportMenu(mainWindow, mainWindow.mnufile, mainWindow.mnuFileRestore);
  unloadMainWindow = [&] { windows.Unload(mainWindow); };
  eventLoop.Watch(rdp);
  eventLoop.Watch(terminationSignals);
  QObject::connect(&eventLoop, &QtEventLoop::Ended, &application, [] { QApplication::exit(); });

  windows.Load(mainWindow);
  if (!mainWindow.State().InTray) windows.Show(mainWindow);
  if (!eventLoop.HasEnded()) QApplication::exec();
  windows.Unload(mainWindow);
  return 0;
}
