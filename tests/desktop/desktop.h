#pragma once

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <gtest/gtest.h>

#include "monitor/frmMain.h"
#include "platform/linux_desktop/linux_desktop.h"
#include "platform/qt/grid_view.h"
#include "platform/settings_store.h"
#include "shared/connection_table.h"

namespace kestrava::test {

/// Where the program finds and leaves what belongs to its user.
struct Home : QTemporaryDir {
  Home() {
    for (const char* kind : {"CONFIG_HOME", "CONFIG_DIRS", "DATA_HOME", "DATA_DIRS"}) {
      qputenv((std::string("XDG_") + kind).c_str(), path().toUtf8());
    }
  }
};
inline const Home home;

// What the user sees and does in the windows of the program.

/// The window of this name, or else the widget in the main window.
inline QWidget* Widget(const QString& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == name) return window;
  }
  return name == "frmMain" ? nullptr : Widget("frmMain")->findChild<QWidget*>(name);
}
inline bool Until(const std::function<bool()>& condition) {
  return QTest::qWaitFor(condition, 60000);
}
/// The names of the windows that are up.
inline QStringList VisibleWindows() {
  QStringList names;
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) names.push_back(window->objectName());
  }
  return names;
}
inline void Click(const QString& button) { QTest::mouseClick(Widget(button), Qt::LeftButton); }
inline void Pick(const QString& entry) { Widget("frmMain")->findChild<QAction*>(entry)->trigger(); }

/// What the user does, one after the other, in the dialogs and menus that come up next.
using Acts = std::deque<std::function<void(QWidget* dialog)>>;
inline void InDialogs(Acts acts) {
  QTimer::singleShot(20, [acts = std::move(acts)]() mutable {
    QWidget* dialog = QApplication::activePopupWidget();
    if (!dialog) dialog = QApplication::activeModalWidget();
    if (!dialog) return InDialogs(std::move(acts));
    const auto act = std::move(acts.front());
    acts.pop_front();
    if (!acts.empty()) InDialogs(std::move(acts));
    act(dialog);
  });
}
/// Fills a field, the first for no name, and presses Enter.
inline auto Enter(const QString& text, const QString& field = {}) {
  return [=](QWidget* dialog) {
    auto* edit = dialog->findChild<QLineEdit*>(field);
    edit->setFocus();
    edit->selectAll();
    edit->insert(text);
    QTest::keyClick(edit, Qt::Key_Return);
  };
}
/// Adds a row of that address.
inline void Add(const QString& address) {
  InDialogs({Enter(address, "txtAddress")});
  Click("cmdAdd");
}
inline const auto closeDialog = [](QWidget* dialog) { dialog->close(); };

/// The whole program in its real windows, with real files, settings and network.
struct Desktop {
  /// @param tray "1" to start in the tray.
  explicit Desktop(const char* tray = "0") {
    real.settings.WriteSetting("Preferences", "Tray", tray);
    real.windows.Load(main);
    if (!main.State().InTray) real.windows.Show(main);
    window = Widget("frmMain");
    view = window->findChild<GridView*>();
  }
  ~Desktop() {
    real.windows.Unload(main);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  /// Puts a row into the table, with an address that no machine can have.
  void AddRow(const std::string& name, const std::string& address = "1..2.3") {
    AppendConnectionRow(grid);
    for (const auto& [column, text] : {std::pair(kNameColumn, name), {kAddressColumn, address}}) {
      grid.SetCol(column);
      grid.SetText(text);
    }
  }
  /// Puts a new row in place of all others, as a list that is loaded does.
  static void ReplaceRows(frmMain& main) {
    main.grdServers.SetRows(1);
    main.grdServers.SetRows(2);
  }
  /// Lets the pass that is under way come to its end.
  void Finish() const {
    ASSERT_TRUE(QTest::qWaitFor([&] { return main.Pointer() == MousePointer::Default; }, 60000));
  }
  void Check() const {
    Click("cmdCheck");
    Finish();
  }
  std::string Cell(int row, int column) const { return grid.TextAt(row, column); }
  /// The texts of a column, with ";" after each.
  std::string Texts(int column) const {
    std::string texts;
    for (int row = 1; row < grid.Rows(); ++row) texts += Cell(row, column) + ";";
    return texts;
  }
  /// Double-clicks an address by mouse, and any other cell by key.
  void DoubleClick(int row, int column) const {
    Settle();
    const QPoint cell = view->visualRect(view->model()->index(row - 1, column - 1)).center();
    if (column == kAddressColumn) {
      // The second half of a double-click that closed a dialog is none here.
      QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, cell);
      QTest::mousePress(view->viewport(), Qt::LeftButton, {}, cell);
      return QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, cell);
    }
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, cell);
    QTest::keyClick(view, Qt::Key_Return);
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
  frmMain main{real};
  MSFlexGrid& grid = main.grdServers;
  QWidget* window;
  GridView* view;
};

}  // namespace kestrava::test
