#include <QAccessible>
#include <QLineEdit>
#include <gtest/gtest.h>

#include "desktop.h"

namespace kestrava::test {
/// Acts on the modal window that the next call opens.
static void InNextModal(std::function<void(QWidget*)> act) {
  QTimer::singleShot(0, [act = std::move(act)] { act(QApplication::activeModalWidget()); });
}

TEST(Windows, AddByKeyAndMouse) {
  const std::pair<const char*, Qt::Key> ways[] = {{"txtName", Qt::Key_Return},
                                                  {"cmdSave", Qt::Key_Space},
                                                  {"txtAddress", Qt::Key_Escape},
                                                  {"cmdCancel", Qt::Key_Return},
                                                  {"", Qt::Key_Close}};
  Desktop desktop;
  for (const auto& [place, key] : ways) {
    InNextModal([&, place = place, key = key](QWidget* dialog) {
      InNextModal([](QWidget* box) {
        EXPECT_EQ(box->windowTitle(), "Kestrava");
        box->close();
      });
      QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
      EXPECT_EQ(dialog->focusWidget()->objectName(), "txtName") << "no address: the box stays open";
      QTest::keyClicks(dialog->findChild<QWidget*>("txtAddress"), "127.0.0.1");
      if (key == Qt::Key_Close) dialog->close();
      if (key != Qt::Key_Close) QTest::keyClick(dialog->findChild<QWidget*>(place), key);
    });
    QTest::mouseClick(desktop.window->findChild<QWidget*>("cmdAdd"), Qt::LeftButton);
  }
  ASSERT_EQ(desktop.grid.Rows(), 3);
  EXPECT_EQ(desktop.grid.TextAt(2, 1), "New Connection 2");
}

TEST(Windows, ATextBoxKeepsItsBytesUntilTheUserEditsIt) {
  Desktop desktop;
  frmNewConn dialog(desktop.windows, desktop.boxes);
  desktop.windows.Load(dialog);
  dialog.txtName.SetText("B\xFCro \x80");
  auto* edit = desktop.TopLevel("frmNewConn")->findChild<QLineEdit*>("txtName");
  EXPECT_EQ(edit->text(), QString("B\u00FCro \u20AC"));
  EXPECT_EQ(dialog.txtName.Text(), "B\xFCro \x80");
  QTest::keyClick(edit, Qt::Key_X);
  EXPECT_EQ(dialog.txtName.Text(), "B\u00FCro \u20ACx");
  desktop.windows.Unload(dialog);
}

TEST(Windows, CloseEndsARunningPassAtOnce) {
  Desktop desktop;
  for (int row = 0; row < 5; ++row) desktop.AddRow("machine");
  int echoes = 0;
  desktop.network.onEcho = [&] {
    EXPECT_EQ(desktop.window->cursor().shape(), Qt::BusyCursor);
    if (++echoes == 2) QTimer::singleShot(0, desktop.window, &QWidget::close);
  };
  desktop.main.cmdCheck.Press();
  EXPECT_EQ(echoes, 2);
  EXPECT_EQ(desktop.grid.TextAt(2, 3), "");
  EXPECT_FALSE(desktop.window->isVisible());
  EXPECT_EQ(desktop.eventLoop.PumpEvents(), LoopState::Ending);
}

TEST(Windows, TheEndClosesDialogAndMessageBox) {
  Desktop desktop;
  InNextModal([&](QWidget*) {
    InNextModal([&](QWidget*) { desktop.main.mnuFileExit.Click.Raise(); });
    EXPECT_EQ(desktop.boxes.AskYesNo("waiting", "title"), YesNo::No);
  });
  desktop.main.cmdAdd.Press();
  for (const QWidget* widget : QApplication::topLevelWidgets()) EXPECT_FALSE(widget->isVisible());
}

TEST(Windows, TabOrderAndAccessibleNames) {
  Desktop desktop;
  for (Button* button : {&desktop.main.cmdCheck, &desktop.main.cmdRemove}) button->SetEnabled(true);
  for (const char* name : {"Connections", "Add New Connection", "Check Now !",
                           "Remove Connection(s)", "Connections"}) {
    QWidget* widget = desktop.window->focusWidget();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name), name);
    QTest::keyClick(widget, Qt::Key_Tab);
  }
}

}  // namespace kestrava::test
