#include <QAbstractItemModelTester>
#include <QHelpEvent>
#include <QToolTip>
#include <gtest/gtest.h>
#include <random>

#include "desktop/desktop.h"

namespace kestrava::test {
TEST(GridView, MirrorsRowsThatComeAndGo) {
  Desktop desktop;
  QAbstractItemModel* model = desktop.view->model();
  const QAbstractItemModelTester tester(model);
  std::vector<std::pair<RowBookmark, std::string>> rows;
  std::mt19937 random(7);
  for (int step = 0; step <= 300; ++step) {
    if (step == 300) desktop.grid.SetRows(100'000);
    const auto at = random() % (rows.size() + 1);
    if (step % 3 == 0 && at < rows.size()) {
      desktop.grid.RemoveItem(static_cast<int>(at) + 1);
      rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(at));
    }
    desktop.AddRow(std::to_string(step));
    rows.emplace_back(desktop.grid.Bookmark(desktop.grid.Row()), std::to_string(step));
    // The view also paints between a change and the time it is told about it.
    desktop.view->viewport()->repaint();
    if (step % 10 != 0) continue;
    desktop.Settle();
    ASSERT_EQ(model->rowCount(), desktop.grid.Rows() - 1);
    for (const auto& [bookmark, name] : rows) {
      const int row = desktop.grid.RowOf(bookmark).value();
      ASSERT_EQ(desktop.grid.TextAt(row, 1), name);
      ASSERT_EQ(model->index(row - 1, 0).data(), name.c_str());
    }
  }
}

TEST(GridView, ATipShowsACutTextToTheLetter) {
  Desktop desktop;
  desktop.AddRow("<b>&</b>  B\xFC");
  desktop.Settle();
  for (const auto& [width, tip] : {std::pair(400, QString()), {30, "<b>&</b>  B\u00FC"}}) {
    desktop.view->setColumnWidth(0, width);
    QHelpEvent event(QEvent::ToolTip, {10, 5}, desktop.view->mapToGlobal(QPoint(10, 5)));
    QApplication::sendEvent(desktop.view->viewport(), &event);
    EXPECT_EQ(QToolTip::text().isEmpty(), tip.isEmpty());
    EXPECT_TRUE(QToolTip::text().contains(tip.toHtmlEscaped()));
  }
}

}  // namespace kestrava::test
