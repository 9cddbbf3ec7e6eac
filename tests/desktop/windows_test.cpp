#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "desktop/desktop.h"
#include "help/web_pages.h"

namespace kestrava::test {
TEST(Windows, AddByKeyAndMouse) {
  Desktop desktop;
  for (const auto& [place, key] : {std::pair("txtName", Qt::Key_Return),
                                   {"cmdSave", Qt::Key_Space},
                                   {"txtAddress", Qt::Key_Escape}}) {
    const auto fill = [place = place, key = key](QWidget* dialog) {
      QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
      EXPECT_EQ(dialog->focusWidget()->objectName(), "txtName") << "no address: the box stays open";
      QTest::keyClicks(dialog->findChild<QWidget*>("txtAddress"), "127.0.0.1");
      QTest::keyClick(dialog->findChild<QWidget*>(place), key);
    };
    InDialogs({fill, closeDialog});
    Click("cmdAdd");
  }
  ASSERT_EQ(desktop.grid.Rows(), 3);
  EXPECT_EQ(desktop.grid.TextAt(2, 1), "New Connection 2");
}

TEST(Windows, EveryButtonAndMenuEntryDoesItsWork) {
  const QTemporaryDir folder;
  const QString list = folder.filePath("list.kvl");
  Desktop desktop;
  desktop.registry.values = {{"", REG_SZ, "\"browser\" %1"}};
  const auto cell = [&](int row, int column) { return desktop.grid.TextAt(row, column); };
  InDialogs({Enter("127.0.0.1", "txtAddress"), Enter("127.0.0.1", "txtAddress")});
  Click("cmdAdd");
  Pick("mnuConnCreate");
  Click("cmdCheck");
  EXPECT_EQ(cell(2, kStatusColumn), "Online (Ping Response)");

  desktop.Settle();
  auto* lamps = desktop.view->verticalHeader();
  const QPoint middle(lamps->width() / 2, lamps->sectionSize(0) / 2);
  EXPECT_EQ(lamps->grab().toImage().pixel(middle * lamps->devicePixelRatio()), 0xFF00FF00);
  const auto doubleClick = [&](int column) {
    const QRect place = desktop.view->visualRect(desktop.view->model()->index(0, column - 1));
    QTest::mouseDClick(desktop.view->viewport(), Qt::LeftButton, {}, place.center());
  };
  InDialogs({Enter("Mail"), Enter("127.0.0.2")});
  doubleClick(kNameColumn);
  QTest::keyClick(desktop.view, Qt::Key_Right);
  QTest::keyClick(desktop.view, Qt::Key_Return);
  doubleClick(kCheckingColumn);
  EXPECT_EQ(cell(1, kNameColumn) + cell(1, kAddressColumn), "Mail127.0.0.2");
  EXPECT_EQ(cell(1, kCheckingColumn), "Disabled");

  InDialogs({Enter(list), closeDialog, Enter(list)});
  Pick("mnuFileSave");
  Pick("mnuFileNew");
  Pick("mnuFileLoad");
  ASSERT_EQ(desktop.grid.Rows(), 3);
  InDialogs({[](QWidget* dialog) {
    auto* marks = dialog->findChild<QListView*>();
    marks->setCurrentIndex(marks->model()->index(1, 0));
    QTest::keyClick(marks, Qt::Key_Space);
    QTest::mouseClick(dialog->findChild<QWidget*>("cmdDelete"), Qt::LeftButton);
  }});
  Click("cmdRemove");
  EXPECT_EQ(desktop.grid.Rows(), 2);
  EXPECT_EQ(cell(1, kNameColumn), "Mail");

  Pick("mnuFileAuto");
  EXPECT_TRUE(desktop.window->findChild<QAction*>("mnuFileAuto")->isChecked());
  InDialogs({Enter("7", "txtInterval")});
  Pick("mnuConnPref");
  EXPECT_EQ(desktop.main.State().CheckInterval, 7);
  desktop.window->activateWindow();
  desktop.Settle();
  QTest::keyClick(desktop.window, Qt::Key_F1);
  InDialogs({[](QWidget* about) {
    auto* link = about->findChild<QLabel*>("lblWeb");
    QTest::mouseClick(link, Qt::LeftButton, {}, {5, link->height() / 2});
    EXPECT_TRUE(about->isVisible());
    about->close();
  }});
  QTest::keyClick(desktop.window, Qt::Key_F2);
  EXPECT_EQ(desktop.registry.started, (std::vector{"\"browser\" " + ManualUrl(),  //
                                                   "\"browser\" " + WebSiteUrl()}));
  Pick("mnuFileTray");
  EXPECT_FALSE(desktop.window->isVisible());
  Pick("mnuFileRestore");
  EXPECT_TRUE(desktop.window->isVisible());
}

TEST(Windows, ATextBoxKeepsItsBytesUntilTheUserEditsIt) {
  Desktop desktop;
  frmNewConn dialog(desktop.real.windows, desktop.real.messageBoxes);
  desktop.real.windows.Load(dialog);
  dialog.txtName.SetText("B\xFCro \x80");
  auto* edit = Widget("frmNewConn")->findChild<QLineEdit*>("txtName");
  EXPECT_EQ(edit->text(), QString("B\u00FCro \u20AC"));
  EXPECT_EQ(dialog.txtName.Text(), "B\xFCro \x80");
  QTest::keyClick(edit, Qt::Key_X);
  EXPECT_EQ(dialog.txtName.Text(), "B\u00FCro \u20ACx");
  desktop.real.windows.Unload(dialog);
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
}

TEST(Windows, TheEndClosesDialogAndMessageBox) {
  Desktop desktop;
  InDialogs({[&](QWidget*) {
               EXPECT_EQ(desktop.real.messageBoxes.AskYesNo("waiting", "title"), YesNo::No);
             },
             [](QWidget*) { Pick("mnuFileExit"); }});
  Click("cmdAdd");
  EXPECT_TRUE(VisibleWindows().isEmpty());
  EXPECT_EQ(desktop.real.eventLoop.PumpEvents(), LoopState::Ending);
}

}  // namespace kestrava::test
