#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>
#include <gtest/gtest.h>
#include <random>

#include "desktop.h"

namespace kestrava::test {
TEST(GridView, MirrorsRowsThatComeAndGo) {
  Desktop desktop;
  QAbstractItemModel* model = desktop.view->model();
  const QAbstractItemModelTester tester(model);
  std::mt19937 random(7);
  for (int step = 0; step <= 300; ++step) {
    if (step == 300) desktop.grid.SetRows(100'000);
    const int row = static_cast<int>(random() % static_cast<unsigned>(desktop.grid.Rows()));
    if (step % 3 == 0 && row > 0) desktop.grid.RemoveItem(row);
    if (step % 50 == 49) desktop.grid.SetRows(row + 1);
    desktop.AddRow(std::to_string(step));
    // The view also paints between a change and the time it is told about it.
    desktop.view->viewport()->repaint();
    if (step % 10 != 0) continue;
    desktop.Settle();
    ASSERT_EQ(model->rowCount(), desktop.grid.Rows() - 1);
    for (int index = 0; index < model->rowCount(); ++index) {
      ASSERT_EQ(model->index(index, 0).data(), desktop.grid.TextAt(index + 1, 1).c_str());
    }
  }
}

TEST(GridView, OnlyTheUserMovesTheChosenCell) {
  Desktop desktop;
  GridView* view = desktop.view;
  const auto click = [](QAbstractScrollArea* area, const QPoint& place) {
    QTest::mouseClick(area->viewport(), Qt::LeftButton, {}, place);
  };
  const auto clickCell = [&](int row, int column) {
    click(view, view->visualRect(view->model()->index(row, column)).center());
  };
  const auto cursor = [&] { return std::pair(desktop.grid.Row(), desktop.grid.Col()); };
  for (int row = 0; row < 9; ++row) desktop.AddRow("machine");
  desktop.Settle();
  clickCell(2, 3);
  EXPECT_EQ(cursor(), std::pair(3, 4));
  desktop.grid.SetRow(9);
  desktop.Settle();
  QTest::keyClick(view, Qt::Key_Down);
  EXPECT_EQ(cursor(), std::pair(4, 4));
  desktop.grid.SetRow(1);
  clickCell(3, 3);
  EXPECT_EQ(cursor(), std::pair(4, 4)) << "the chosen cell can be clicked again";
  click(view->verticalHeader(), {4, 5});
  EXPECT_EQ(cursor(), std::pair(1, 0));
}

TEST(GridView, LampsStayWhileTheTableScrolls) {
  Desktop desktop;
  for (const Color lamp : {kGreen, kRed, kWhite}) desktop.AddRow("machine", lamp);
  const QHeaderView* lamps = desktop.view->verticalHeader();
  const int left = lamps->x();
  desktop.view->setColumnWidth(0, 3000);
  desktop.Settle();
  desktop.view->horizontalScrollBar()->setValue(500);
  EXPECT_EQ(desktop.view->columnViewportPosition(0), -500);
  EXPECT_EQ(lamps->x(), left);
  const QImage image = desktop.view->verticalHeader()->grab().toImage();
  auto* table = QAccessible::queryAccessibleInterface(desktop.view)->tableInterface();
  for (const auto& [row, color, meaning] :
       {std::tuple(0, 0xFF00FF00, "Online"), {1, 0xFFFF0000, "Offline"}, {2, ~0U, "Unchecked"}}) {
    const QPoint place(lamps->width() / 2,
                       lamps->sectionPosition(row) + lamps->sectionSize(row) / 2);
    EXPECT_EQ(image.pixel(place * image.devicePixelRatio()), color);
    EXPECT_EQ(lamps->model()->headerData(row, Qt::Vertical, Qt::AccessibleTextRole), meaning);
    EXPECT_EQ(table->cellAt(row, 0)->text(QAccessible::Name), "machine");
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
