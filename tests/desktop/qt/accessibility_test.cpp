#include <QAccessible>
#include <QTest>

#include "desktop/desktop.h"
#include "desktop/qt/widgets.h"

namespace kestrava::test {
/// What a screen reader says while Tab goes once around the window.
static std::string NamesByTab(const QWidget* window) {
  QStringList names;
  QWidget* const first = window->focusWidget();
  do {
    names << QAccessible::queryAccessibleInterface(window->focusWidget())->text(QAccessible::Name);
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
  } while (window->focusWidget() != first && names.size() < 9);
  return names.join('|').toStdString();
}

TEST(Accessibility, TabReachesEveryControlByItsNameAndTheLampSpeaks) {
  Desktop desktop;
  desktop.AddRow("machine", "127.0.0.1");
  Settle();
  // The first of the second row, after the row of headings.
  auto* lamp = QAccessible::queryAccessibleInterface(Table())->child(6);
  EXPECT_EQ(lamp->text(QAccessible::Name), "Unchecked");
  desktop.main.cmdCheck.Press();
  desktop.Finish();
  EXPECT_EQ(lamp->text(QAccessible::Name), "Online");

  for (Button* button : {&desktop.main.cmdCheck, &desktop.main.cmdRemove}) button->SetEnabled(true);
  EXPECT_EQ(NamesByTab(MainWindow()),
            "Connections|Add New Connection|Check Now !|Remove Connection(s)");
  const std::map<std::string, std::string> dialogs = {
      {"cmdRemove", "Remove Connections|Delete|Cancel"},
      {"cmdAdd", "Connection Name|Connection IP Address|Save|Cancel"},
      {"mnuConnPref",
       "Connection Status Check Interval (mins)|Show Balloon Popup when Running in System Tray|"
       "Start Monitor in System Tray|Save Changes|Cancel"},
      {"mnuHelpAbout", "www.kestrava.example"}};
  for (const auto& [way, names] : dialogs) {
    InDialogs({[names = names](Part dialog) {
      EXPECT_EQ(NamesByTab(WidgetOf(dialog)), names);
      Press(dialog, Key::Escape);
    }});
    if (way.starts_with("cmd")) {
      Click(Find(way));
    } else {
      Pick(way);
    }
  }
}

}  // namespace kestrava::test
