// The least that a Qt program with a window and an empty table can be.

#include <QApplication>
#include <QStandardItemModel>
#include <QTableView>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QStandardItemModel table(0, 6);
  QTableView window;
  window.setModel(&table);
  // The size of the program's main window, with its menu bar.
  window.resize(746, 385);
  window.show();
  return QApplication::exec();
}
