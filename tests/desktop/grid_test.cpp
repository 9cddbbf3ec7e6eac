#include <QAbstractItemModelTester>
#include <random>

#include "desktop/desktop.h"

namespace kestrava::test {
TEST(GridView, MirrorsRowsThatComeAndGo) {
  Desktop desktop;
  QAbstractItemModel* model = desktop.view->model();
  const QAbstractItemModelTester tester(model);
  std::mt19937 random(7);
  std::vector<std::string> names;
  for (int step = 0; step <= 300; ++step) {
    if (step == 300) {
      desktop.grid.SetRows(100'000);
      names.resize(99'999);
    }
    const auto at = random() % 50;
    if (step % 3 == 0 && at + 1 < names.size()) {
      desktop.grid.RemoveItem(static_cast<int>(at) + 1);
      names.erase(names.begin() + static_cast<std::ptrdiff_t>(at));
    }
    names.push_back(std::to_string(step));
    desktop.AddRow(names.back());
    // The view also paints between a change and the time it is told about it.
    desktop.view->viewport()->repaint();
    if (step % 10 != 0) continue;
    desktop.Settle();
    ASSERT_EQ(model->rowCount(), std::ssize(names));
    for (int row = 0; row < model->rowCount(); ++row) {
      ASSERT_EQ(model->index(row, 0).data().toString().toStdString(),
                names.at(static_cast<std::size_t>(row)));
    }
  }
}

TEST(GridView, TheChoiceStaysOnItsRowAndAWidthIsTheProgramsAgain) {
  Desktop desktop;
  for (const char* name : {"A", "B", "C"}) desktop.AddRow(name);
  desktop.DoubleClick(3, kCheckingColumn);
  desktop.view->setColumnWidth(2, 5);
  for (const char* chosen : {"C", "C", ""}) {
    desktop.Settle();
    EXPECT_EQ(desktop.view->currentIndex().siblingAtColumn(0).data().toString(), chosen);
    EXPECT_EQ(desktop.view->selectionModel()->hasSelection(), *chosen != '\0');
    desktop.grid.RemoveItem(1);
    if (desktop.grid.Rows() == 2) desktop.ReplaceRows(desktop.main);
  }
  Pick("mnuFileNew");
  desktop.Settle();
  EXPECT_GT(desktop.view->columnWidth(2), 5);
}

TEST(GridView, ShowsOfATextWhatCanBeSeenAndNoMoreThanCanBeRead) {
  Desktop desktop;
  const QString joined =
      "\u0645\u06CC\u200C\u062E \u0915\u094D\u200D\u0937 \U0001F468\u200D\U0001F469";
  const std::pair<QString, QString> texts[] = {
      {"a\u202Eexe.b\u200B\u200D\t", "a[U+202E]exe.b[U+200B][U+200D][U+0009]"},
      {joined, joined},
      {"x" + QString(9'000'000, QChar(0xE9)), "x" + QString(1023, QChar(0xE9)) + "\u2026"}};
  for (const auto& [text, shown] : texts) {
    desktop.AddRow(text.toStdString());
    desktop.Settle();
    EXPECT_EQ(desktop.view->model()->index(desktop.grid.Rows() - 2, 0).data().toString(), shown);
  }
}

}  // namespace kestrava::test
