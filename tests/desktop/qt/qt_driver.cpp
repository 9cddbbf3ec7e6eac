#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <gtest/gtest.h>
#include <map>

#include "desktop/qt/widgets.h"
#include "platform/linux_desktop/linux_desktop.h"
#include "platform/qt/wayland.h"

namespace kestrava::test {

/// The user's folders lie where the test can leave them.
struct Home : QTemporaryDir {
  Home() {
    for (const char* kind : {"CONFIG_HOME", "CONFIG_DIRS", "DATA_HOME", "DATA_DIRS"}) {
      qputenv((std::string("XDG_") + kind).c_str(), path().toUtf8());
    }
  }
};
static const Home home;
std::string HomeFolder() { return home.path().toStdString() + "/"; }

void UseBrowser(const std::string& file) {
  QFile browser(home.filePath("browser"));
  browser.open(QFile::WriteOnly);
  browser.write(("#!/bin/sh\necho \"$# $*\" >>" + file).c_str());
  browser.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
  qputenv("BROWSER", browser.fileName().toUtf8());
}

class QtSystem final : public System {
 public:
  ~QtSystem() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
  Platform Services() override { return desktop_.Services(); }

 private:
  LinuxDesktop desktop_;
};
std::unique_ptr<System> MakeSystem() { return std::make_unique<QtSystem>(); }

static QString Q(const std::string& text) { return QString::fromStdString(text); }
static QLineEdit* Field(Part part) { return dynamic_cast<QLineEdit*>(WidgetOf(part)); }

Part Find(const std::string& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == Q(name)) return PartOf(window);
  }
  return name == "frmMain" ? nullptr : Find(Find("frmMain"), name);
}
Part Find(Part window, const std::string& name) {
  if (name.empty()) return PartOf(WidgetOf(window)->findChild<QLineEdit*>());
  return PartOf(WidgetOf(window)->findChild<QWidget*>(Q(name)));
}
std::vector<std::string> VisibleWindows() {
  std::vector<std::string> names;
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) names.push_back(window->objectName().toStdString());
  }
  return names;
}
bool IsUp(Part window) { return WidgetOf(window)->isVisible() && !WidgetOf(window)->isMinimized(); }
bool IsEnabled(Part part) { return WidgetOf(part)->isEnabled(); }
bool IsActive(Part window) { return OnWayland() || WidgetOf(window)->isActiveWindow(); }
/// Off the screen every window that comes up takes the keys, the icon's too.
static void AwaitIcon() {
  ASSERT_TRUE(Until([] { return std::ranges::count(VisibleWindows(), "trayStandIn") == 1; }));
}
void TakeKeys(Part window) {
  AwaitIcon();
  WidgetOf(window)->activateWindow();
  ASSERT_TRUE(Until([&] { return IsActive(window); }));
}
void Minimize(Part window) {
  WidgetOf(window)->setWindowState(Qt::WindowMinimized);
  AwaitIcon();
}
void Close(Part window) { WidgetOf(window)->close(); }

void Click(Part control) {
  // By way of its window, which takes no click while a dialog blocks it.
  const QWidget* widget = WidgetOf(control);
  const QPoint middle = widget->mapTo(widget->window(), widget->rect().center());
  QTest::mouseClick(widget->window()->windowHandle(), Qt::LeftButton, {}, middle);
}
void Press(Part part, Key key) {
  static const std::map<Key, Qt::Key> keys = {
      {Key::Tab, Qt::Key_Tab},     {Key::Enter, Qt::Key_Return}, {Key::Escape, Qt::Key_Escape},
      {Key::Space, Qt::Key_Space}, {Key::F1, Qt::Key_F1},        {Key::F2, Qt::Key_F2}};
  QWidget* widget = WidgetOf(part);
  if (widget->isWindow() && widget->focusWidget()) widget = widget->focusWidget();
  QTest::keyClick(widget, keys.at(key));
}
void Fill(Part field, const std::string& text) {
  Field(field)->setFocus();
  Field(field)->selectAll();
  Field(field)->insert(Q(text));
}
std::string TextOf(Part field) { return Field(field)->text().toStdString(); }
static std::string NameOf(QAccessibleInterface* part) {
  return part->text(QAccessible::Name).toStdString();
}
std::string FocusIn(Part window) {
  return NameOf(QAccessible::queryAccessibleInterface(WidgetOf(window)->focusWidget()));
}

void Pick(const std::string& entry) { MainWindow()->findChild<QAction*>(Q(entry))->trigger(); }
std::string MenuNow() {
  QString texts;
  for (const QMenu* menu : MainWindow()->findChildren<QMenu*>()) {
    for (const QAction* action : menu->actions()) {
      if (action->isSeparator() || action->menu()) continue;
      if (!action->isVisible() || !action->isEnabled()) continue;
      texts += (action->isChecked() ? "*" : "") + action->text() + '|';
    }
  }
  return texts.toStdString();
}

std::string Read(Part box) {
  QString text = WidgetOf(box)->windowTitle() + '|';
  if (const auto* message = dynamic_cast<QMessageBox*>(WidgetOf(box))) {
    static const std::map<QMessageBox::Icon, QString> pictures = {{QMessageBox::Critical, "x"},
                                                                  {QMessageBox::Warning, "!"},
                                                                  {QMessageBox::Question, "?"},
                                                                  {QMessageBox::NoIcon, ""}};
    text += message->text() + "||" + pictures.at(message->icon());
  } else if (const auto* prompt = dynamic_cast<QInputDialog*>(WidgetOf(box))) {
    text += prompt->labelText() + '|' + prompt->textValue() + '|';
  }
  return text.toStdString();
}

static QListView* List(Part dialog) { return WidgetOf(dialog)->findChild<QListView*>(); }
std::vector<std::string> Entries(Part dialog) {
  std::vector<std::string> texts;
  const QAbstractItemModel* model = List(dialog)->model();
  for (int row = 0; row < model->rowCount(); ++row) {
    const QModelIndex entry = model->index(row, 0);
    const bool ticked = entry.data(Qt::CheckStateRole) == Qt::Checked;
    texts.push_back((ticked ? "*" : "") + entry.data().toString().toStdString());
  }
  return texts;
}
void Tick(Part dialog, int entry) {
  const QModelIndex index = List(dialog)->model()->index(entry, 0);
  List(dialog)->setCurrentIndex(index);
  if (entry % 2 == 0) return QTest::keyClick(List(dialog), Qt::Key_Space);
  const QPoint box = List(dialog)->visualRect(index).topLeft() + QPoint(8, 8);
  QTest::mouseClick(List(dialog)->viewport(), Qt::LeftButton, {}, box);
}

int ShownRows() { return Table()->model()->rowCount() + 1; }
static QModelIndex Cell(int row, int column) {
  return Table()->model()->index(row - 1, column - 1);
}
std::string ShownText(int row, int column) {
  // The first of a row, after the row of headings.
  if (column == 0) return NameOf(QAccessible::queryAccessibleInterface(Table())->child(6 * row));
  return Cell(row, column).data().toString().toStdString();
}
std::set<std::uint32_t> ColorsAt(int row, int column) {
  QWidget* view = column == 0 ? Table()->verticalHeader()->viewport() : Table()->viewport();
  QRect cell = Table()->visualRect(Cell(row, std::max(column, 1)));
  if (column == 0) cell = QRect(0, cell.y(), view->width(), cell.height());
  const QImage picture = view->grab(cell.adjusted(2, 2, -2, -2)).toImage();
  std::set<std::uint32_t> colors;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) colors.insert(picture.pixel(x, y) & 0xFFFFFF);
  }
  return colors;
}
std::string ChosenRow() {
  if (!Table()->selectionModel()->hasSelection()) return "none";
  return Table()->currentIndex().siblingAtColumn(0).data().toString().toStdString();
}
static QPoint Middle(int row, int column) {
  return Table()->visualRect(Cell(row, column)).center();
}
void ClickCell(int row, int column) {
  QTest::mouseClick(Table()->viewport(), Qt::LeftButton, {}, Middle(row, column));
}
void DoubleClickCell(int row, int column) {
  const QPoint cell = Middle(row, column);
  // The second half of a double-click that closed a dialog is none here.
  QTest::mouseDClick(Table()->viewport(), Qt::LeftButton, {}, cell);
  QTest::mousePress(Table()->viewport(), Qt::LeftButton, {}, cell);
  QTest::mouseDClick(Table()->viewport(), Qt::LeftButton, {}, cell);
}
int ColumnWidth(int column) { return Table()->columnWidth(column - 1); }
void DragColumn(int column, int width) { Table()->setColumnWidth(column - 1, width); }
void Repaint() { Table()->viewport()->repaint(); }
std::shared_ptr<void> HoldTableToItsRules() {
  return std::make_shared<QAbstractItemModelTester>(Table()->model());
}
bool PointerIsBusy() { return MainWindow()->cursor().shape() == Qt::BusyCursor; }

bool Until(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 60000); }
void After(std::chrono::milliseconds time, std::function<void()> call) {
  QTimer::singleShot(time, Qt::PreciseTimer, std::move(call));
}
Part TopDialog() {
  QWidget* popup = QApplication::activePopupWidget();
  return PartOf(popup ? popup : QApplication::activeModalWidget());
}

}  // namespace kestrava::test
