#include <QAbstractItemModelTester>
#include <random>

#include "desktop/desktop.h"

namespace kestrava::test {
TEST(GridView, MirrorsRowsThatComeAndGo) {
  Desktop desktop;
  QAbstractItemModel* model = desktop.view->model();
  const QAbstractItemModelTester tester(model);
  std::mt19937 random(7);
  for (int step = 0; step <= 300; ++step) {
    if (step == 300) desktop.grid.SetRows(100'000);
    const auto at = static_cast<int>(random() % 50) + 1;
    if (step % 3 == 0 && at < desktop.grid.Rows() - 1) desktop.grid.RemoveItem(at);
    desktop.AddRow(std::to_string(step));
    // The view also paints between a change and the time it is told about it.
    desktop.view->viewport()->repaint();
    if (step % 10 != 0) continue;
    desktop.Settle();
    ASSERT_EQ(model->rowCount(), desktop.grid.Rows() - 1);
    for (int row = 1; row < desktop.grid.Rows(); ++row) {
      ASSERT_EQ(model->index(row - 1, 0).data().toString().toStdString(),
                desktop.grid.TextAt(row, kNameColumn));
    }
  }
}

}  // namespace kestrava::test
