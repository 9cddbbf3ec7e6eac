#include <random>

#include "desktop/desktop.h"

namespace kestrava::test {
TEST(GridView, MirrorsRowsThatComeAndGo) {
  Desktop desktop;
  const auto rules = HoldTableToItsRules();
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
    if (step % 6 == 0) Repaint();
    if (step % 10 != 0) continue;
    Settle();
    ASSERT_EQ(ShownRows(), std::ssize(names) + 1);
    for (int row = 1; row < ShownRows(); ++row) {
      ASSERT_EQ(ShownText(row, kNameColumn), names.at(static_cast<std::size_t>(row) - 1));
    }
  }
}

TEST(GridView, TheChoiceStaysOnItsRowAndAWidthIsTheProgramsAgain) {
  Desktop desktop;
  for (const char* name : {"A", "B", "C"}) desktop.AddRow(name);
  desktop.DoubleClick(3, kCheckingColumn);
  DragColumn(kStatusColumn, 5);
  for (const char* chosen : {"C", "C", "none"}) {
    Settle();
    EXPECT_EQ(ChosenRow(), chosen);
    desktop.grid.RemoveItem(1);
    if (desktop.grid.Rows() == 2) desktop.ReplaceRows(desktop.main);
  }
  desktop.AddRow("D");
  desktop.DoubleClick(1, kCheckingColumn);
  EXPECT_EQ(ChosenRow(), "D");
  desktop.ReplaceRows(desktop.main);
  Settle();
  EXPECT_EQ(ChosenRow(), "none");
  EXPECT_EQ(ColumnWidth(kStatusColumn), 5);
  Pick("mnuFileNew");
  Settle();
  EXPECT_GT(ColumnWidth(kStatusColumn), 5);
}

TEST(GridView, PaintsEachTextInItsOwnCell) {
  Desktop desktop;
  for (const char* name : {"", "name"}) desktop.AddRow(name, "");
  Settle();
  for (const int row : {1, 2}) {
    for (int column = kNameColumn; column < desktop.grid.Cols(); ++column) {
      EXPECT_EQ(ColorsAt(row, column).size() > 1, !ShownText(row, column).empty());
    }
  }
}

TEST(GridView, ShowsOfATextWhatCanBeSeenAndNoMoreThanCanBeRead) {
  Desktop desktop;
  const std::string joined =
      "\u0645\u06CC\u200C\u062E \u0915\u094D\u200D\u0937 \U0001F468\u200D\U0001F469";
  std::string letters;
  while (letters.size() < 18'000'000) letters += "\u00E9";
  const std::pair<std::string, std::string> texts[] = {
      {"a\u202Eexe.b\u200B\u200D\t", "a[U+202E]exe.b[U+200B][U+200D][U+0009]"},
      {joined, joined},
      {"x" + letters, "x" + letters.substr(0, 2046) + "\u2026"}};
  for (const auto& [text, shown] : texts) {
    desktop.AddRow(text);
    Settle();
    EXPECT_EQ(ShownText(desktop.grid.Rows() - 1, kNameColumn), shown);
  }
}

}  // namespace kestrava::test
