#pragma once

#include "desktop/user.h"
#include "monitor/connection_table.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/linux_desktop.h"
#include "support/memory_desktop.h"

namespace kestrava::test {

/// The real main window on the real desktop, with made-up settings, registry and network.
struct Desktop {
  explicit Desktop(const StoredSettings& stored = {}) {
    settings.values = stored;
    network.At("127.0.0.1") = kAnswering;
    system.NotificationArea().ExportMenu(main, main.mnufile, main.mnuFileRestore);
    real.windows.Load(main);
    if (!main.State().InTray) real.windows.Show(main);
    window = Widget("frmMain");
    view = window->findChild<GridView*>();
  }
  ~Desktop() {
    real.windows.Unload(main);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void AddRow(const std::string& name, const std::string& address = "127.0.0.1") {
    AppendConnectionRow(grid);
    grid.SetCol(kNameColumn);
    grid.SetText(name);
    grid.SetCol(kAddressColumn);
    grid.SetText(address);
  }
  /// Lets the view catch up with the grid. Its timer is due ahead of this one, however slow the
  /// machine is.
  static void Settle() {
    QEventLoop wait;
    QTimer::singleShot(40, Qt::PreciseTimer, &wait, &QEventLoop::quit);
    wait.exec();
  }

  LinuxDesktop system;
  Platform real = system.Services();
  MemoryDesktop unused;
  MemoryNetwork network{unused};
  TestClock clock;
  MemorySettings settings;
  MemoryRegistry registry;
  frmMain main{Platform{real.windows, real.eventLoop, real.messageBoxes, real.promptBoxes,
                        real.commonDialog, clock, network, network, network, settings,
                        real.fileSystem, real.notificationArea, real.versions, real.messages,
                        registry, registry, ""}};
  MSFlexGrid& grid = main.grdServers;
  QWidget* window;
  GridView* view;
};

}  // namespace kestrava::test
