#pragma once

#include "desktop/user.h"
#include "monitor/connection_table.h"
#include "platform/linux/linux_file_system.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/qt_common_dialog.h"
#include "platform/qt/qt_message_boxes.h"
#include "platform/qt/qt_prompt_boxes.h"
#include "platform/qt/qt_window_system.h"
#include "support/memory_desktop.h"

namespace kestrava::test {

/// The real main window in real widgets, with a made-up network.
struct Desktop {
  Desktop() {
    network.At("127.0.0.1") = kAnswering;
    windows.Load(main);
    windows.Show(main);
    window = Widget("frmMain");
    view = window->findChild<GridView*>();
  }
  ~Desktop() {
    windows.Unload(main);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void AddRow(const std::string& name) {
    AppendConnectionRow(grid);
    grid.SetCol(kNameColumn);
    grid.SetText(name);
    grid.SetCol(kAddressColumn);
    grid.SetText("127.0.0.1");
  }
  /// Lets the view catch up with the grid.
  static void Settle() { QTest::qWait(40); }

  QtEventLoop eventLoop;
  QtMessageBoxes boxes{eventLoop};
  QtPromptBoxes prompts{eventLoop};
  QtCommonDialog dialogs{eventLoop};
  QtWindowSystem windows{eventLoop};
  LinuxFileSystem files;
  MemoryDesktop unused;
  MemoryNetwork network{unused};
  TestClock clock;
  MemorySettings settings;
  MemoryShell shell;
  MemoryRegistry registry;
  frmMain main{Platform{windows, eventLoop, boxes, prompts, dialogs, clock, network, network,
                        network, settings, files, shell, shell, shell, registry, registry, ""}};
  MSFlexGrid& grid = main.grdServers;
  QWidget* window;
  GridView* view;
};

}  // namespace kestrava::test
