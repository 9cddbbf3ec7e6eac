#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <filesystem>

#include "desktop/desktop.h"
#include "help/web_pages.h"
#include "platform/qt/wayland.h"

namespace kestrava::test {
/// Reads a message box and closes it.
static auto Tells(const char* message) {
  return [=](QWidget* box) {
    EXPECT_EQ(dynamic_cast<QMessageBox&>(*box).text(), message);
    EXPECT_EQ(dynamic_cast<QMessageBox&>(*box).icon(), QMessageBox::Critical);
    box->close();
  };
}

TEST(Windows, AddTakesWhatTheDialogTook) {
  Desktop desktop;
  const std::tuple<const char*, const char*, const char*> refused[] = {
      {"txtAddress", "", "Connection Address Cannot be Left Blank"},
      {"txtName", "", "Connection Name Cannot be Left Blank"},
      {"txtName", " <b>Mail</b> ", "Connection Address Cannot be Left Blank"},
      {"txtAddress", "1.2.3", "The Address format is not recognised"},
      {"txtAddress", "1.2.3.4.5", "The Address format is not recognised"}};
  Acts acts = {[&](QWidget* dialog) {
    EXPECT_EQ(dialog->focusWidget()->objectName(), "txtName");
    for (const auto& [field, text, message] : refused) Enter(text, field)(dialog);
    QTest::keyClicks(dialog->findChild<QWidget*>("txtAddress"), "\b\b");
    QTest::keyClick(dialog->findChild<QWidget*>("cmdSave"), Qt::Key_Space);
  }};
  for (const auto& [field, text, message] : refused) acts.push_back(Tells(message));
  acts.push_back([](QWidget* dialog) {
    EXPECT_EQ(dialog->findChild<QLineEdit*>("txtName")->text(), "New Connection 2");
    QTest::keyClicks(dialog->findChild<QWidget*>("txtAddress"), "...");
    QTest::keyClick(dialog, Qt::Key_Escape);
  });
  InDialogs(acts);
  Click("cmdAdd");
  Pick("mnuConnCreate");
  ASSERT_EQ(desktop.grid.Rows(), 2);
  const char* row[] = {"", " <b>Mail</b> ", "1.2.3.4", "Unchecked", "Enabled", "Unchecked"};
  for (int column = 0; column < 6; ++column) EXPECT_EQ(desktop.Cell(1, column), row[column]);
  EXPECT_EQ(desktop.grid.BackColorAt(1, kLampColumn), kWhite);
}

TEST(Windows, RemoveTakesTheMarkedRowsAloneAlsoFromUnderAPass) {
  const std::pair<const char*, const char*> cases[] = {{"", "1;2;3;4;"},
                                                       {"23", "1;4;"},
                                                       {"34", "1;2;"},
                                                       {"14", "2;3;"},
                                                       {"2", "1;3;4;"},
                                                       {"1234", ""},
                                                       {"1234 of an old list", ";"}};
  for (const auto& [marked, left] : cases) {
    for (const bool inPass : {false, true}) {
      SCOPED_TRACE(marked);
      Desktop desktop;
      Add("...");
      desktop.grid.SetRows(1);
      for (const auto& [name, address] : {std::pair("A", "1"), {"B", "2"}, {"B", "3"}, {"", "4"}}) {
        desktop.AddRow(name, address);
      }
      InDialogs({[&, marked = QString(marked)](QWidget* dialog) {
        auto* list = dialog->findChild<QListView*>();
        QString names;
        for (int row = 0; row < list->model()->rowCount(); ++row) {
          list->setCurrentIndex(list->model()->index(row, 0));
          names += list->currentIndex().data().toString();
          if (marked.contains(QString::number(row + 1))) QTest::keyClick(list, Qt::Key_Space);
        }
        EXPECT_EQ(names, "ABB");
        if (marked.endsWith("old list")) Desktop::ReplaceRows(desktop.main);
        QTest::mouseClick(dialog->findChild<QWidget*>("cmdDelete"), Qt::LeftButton);
      }});
      if (inPass) Click("cmdCheck");
      Click("cmdRemove");
      desktop.Finish();
      EXPECT_EQ(desktop.Texts(kAddressColumn), left);
      const auto* status = inPass && *left != ';' ? "Offline (ip bad destination)" : "";
      for (int row = 1; row < desktop.grid.Rows(); ++row) {
        EXPECT_EQ(desktop.Cell(row, kStatusColumn), status);
      }
      EXPECT_EQ(Widget("cmdCheck")->isEnabled(), *left != '\0');
      EXPECT_EQ(Widget("cmdRemove")->isEnabled(), *left != '\0');
    }
  }
}

TEST(Windows, EditChangesTheCellThatWasDoubleClickedWhereverItsRowGoes) {
  const std::string name = "Connection Name|Please Enter the New Connection Name|B\u00FC[U+00AD]";
  const std::string address = "Connection Address|Please Enter the New Connection Address|1..2.3";
  const auto nothing = [](frmMain&) {};
  const auto check = [](frmMain& main) { main.cmdCheck.Press(); };
  const auto removeAbove = [](frmMain& main) { main.grdServers.RemoveItem(1); };
  const auto removeIt = [](frmMain& main) { main.grdServers.RemoveItem(2); };
  const struct {
    Column column;
    std::string question, answer, texts;  // the texts of the column afterwards
    void (*meanwhile)(frmMain&);
  } cases[] = {
      {kNameColumn, name, "", "A;B\374\255;C;", nothing},
      {kNameColumn, name, "B\u00FC[U+00AD]", "A;B\374\255;C;", nothing},
      {kNameColumn, name, " ,\r\n", "A; ,  ;C;", nothing},
      {kNameColumn, name, "X", "A;X;C;", check},
      {kNameColumn, name, "X", "X;C;", removeAbove},
      {kNameColumn, name, "X", "A;C;", removeIt},
      {kNameColumn, name, "X", ";", Desktop::ReplaceRows},
      {kAddressColumn, address, "1.2.3", "1..2.3;1..2.3;1..2.3;", nothing},
      {kAddressColumn, address, "a.b.c.d", "1..2.3;a.b.c.d;1..2.3;", nothing},
      {kAddressColumn, address, "...", "...;1..2.3;", removeAbove},
  };
  for (const auto& [column, question, answer, texts, meanwhile] : cases) {
    SCOPED_TRACE(texts);
    Desktop desktop;
    for (const char* row : {"A", "B\xFC\xAD", "C"}) desktop.AddRow(row);
    QString asked;
    InDialogs({[&, &answer = answer, &meanwhile = meanwhile](QWidget* dialog) {
      const auto& prompt = dynamic_cast<QInputDialog&>(*dialog);
      asked = prompt.windowTitle() + '|' + prompt.labelText() + '|' + prompt.textValue();
      meanwhile(desktop.main);
      if (answer == "1.2.3") InDialogs({Tells("Not a Valid Address Format")});
      Enter(QString::fromStdString(answer))(dialog);
    }});
    desktop.DoubleClick(2, column);
    EXPECT_EQ(asked.toStdString(), question);
    EXPECT_EQ(desktop.Texts(column), texts);
    for (const char* word : {"Enabled", "Disabled", "Enabled"}) {
      desktop.DoubleClick(1, kCheckingColumn);
      EXPECT_EQ(desktop.Cell(1, kCheckingColumn), word);
    }
  }
}

TEST(Windows, TheMenuWorksAndAListAndThePreferencesOutliveTheProgram) {
  const QString list = home.filePath("my list, \u00E4.kvl");
  const std::string oddList = home.path().toStdString() + "/B\xFC.kvl";
  {
    Desktop desktop;
    Add("127.0.0.1");
    Add("1..2.3");
    desktop.Check();
    desktop.Settle();
    auto* lamps = desktop.view->verticalHeader();
    const QPoint middle(lamps->width() / 2, lamps->sectionSize(0) / 2);
    EXPECT_EQ(lamps->grab().toImage().pixel(middle * lamps->devicePixelRatio()), 0xFF00FF00);
    InDialogs({Enter(list), closeDialog, Enter(list), Enter("77", "txtInterval")});
    Pick("mnuFileSave");
    Pick("mnuFileNew");
    EXPECT_EQ(desktop.grid.Rows(), 1);
    Pick("mnuFileLoad");
    Pick("mnuConnPref");
    std::filesystem::copy_file(list.toStdString(), oddList);
    InDialogs({Enter(home.filePath("B\u00FC.kvl"))});
    Pick("mnuFileLoad");
    EXPECT_EQ(desktop.main.State().LastListFile, oddList);
    Pick("mnuFileAuto");
    Pick("mnuFileExit");
  }
  const Desktop desktop;
  ASSERT_EQ(desktop.grid.Rows(), 3);
  EXPECT_EQ(desktop.Cell(1, kStatusColumn), "Online (Ping Response)");
  EXPECT_EQ(desktop.Cell(2, kStatusColumn), "Offline ()");
  EXPECT_EQ(desktop.main.State().LastListFile, oddList);
  EXPECT_EQ(desktop.main.State().CheckInterval, 77);
  Pick("mnuFileAuto");
  EXPECT_FALSE(desktop.main.mnuFileAuto.Checked());
}

TEST(Windows, GoToTheTrayAndBack) {
  const Desktop desktop("-1");
  for (const bool minimizes : {false, true}) {
    if (minimizes) {
      desktop.window->setWindowState(Qt::WindowMinimized);
    } else {
      Pick("mnuFileTray");
    }
    EXPECT_FALSE(desktop.window->isVisible());
    Pick("mnuFileRestore");
    EXPECT_TRUE(desktop.window->isVisible() && !desktop.window->isMinimized());
    std::string hidden;
    for (const MenuEntry* entry : desktop.main.Menu()) {
      if (!entry->Visible()) hidden += entry->Spec().name;
    }
    EXPECT_EQ(hidden, "mnuFileRestore");
  }
}

TEST(Windows, GoToTheTrayWithADialogAndItsBoxAndComeBackToGoOn) {
  Desktop desktop;
  int rows = 1;
  for (const QString minimized : {"frmMain", "frmNewConn", "box"}) {
    InDialogs({Enter("", "txtAddress"), [&](QWidget* box) {
                 box->setObjectName("box");
                 const QList<QWidget*> windows = {desktop.window, Widget("frmNewConn"), box};
                 Widget(minimized)->setWindowState(Qt::WindowMinimized);
                 Desktop::Settle();
                 for (const auto* window : windows) EXPECT_FALSE(window->isVisible());
                 Pick("mnuFileRestore");
                 for (const auto* window : windows) {
                   EXPECT_TRUE(window->isVisible() && !window->isMinimized());
                 }
                 EXPECT_TRUE(OnWayland() || Until([&] { return box->isActiveWindow(); }));
                 for (const char* entry : {"mnuFileNew", "mnuConnCreate"}) Pick(entry);
                 EXPECT_EQ(desktop.grid.Rows(), rows);
                 InDialogs({Enter("1..2.3", "txtAddress")});
                 box->close();
               }});
    Click("cmdAdd");
    EXPECT_EQ(desktop.grid.Rows(), ++rows);
  }
  Pick("mnuFileNew");
  EXPECT_EQ(desktop.grid.Rows(), 1);
}

TEST(Windows, HelpOpensItsPagesInTheBrowser) {
  QFile browser(home.filePath("browser"));
  QFile record(home.filePath("record"));
  ASSERT_TRUE(browser.open(QFile::WriteOnly) && record.open(QFile::ReadWrite));
  browser.write("#!/bin/sh\necho \"$# $*\" >>" + record.fileName().toUtf8());
  browser.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
  browser.close();
  qputenv("BROWSER", browser.fileName().toUtf8());
  const auto opens = [&](const std::string& url) {
    EXPECT_TRUE(Until([&] { return record.bytesAvailable() > 0; }));
    EXPECT_EQ(record.readLine().toStdString(), "1 " + url + "\n");
  };
  const Desktop desktop;
  // Off the screen every window that comes up takes the keys, the icon's too.
  ASSERT_TRUE(Until([] { return VisibleWindows().contains("trayStandIn"); }));
  desktop.window->activateWindow();
  ASSERT_TRUE(Until([&] { return desktop.window->isActiveWindow(); }));
  QTest::keyClick(desktop.window, Qt::Key_F1);
  opens(ManualUrl());
  bool looked = false;
  InDialogs({[&](QWidget* about) {
    looked = true;
    auto* link = about->findChild<QLabel*>("lblWeb");
    QTest::mouseClick(link, Qt::LeftButton, {}, {link->width() - 5, 3});
    opens(WebSiteUrl());
    EXPECT_TRUE(about->isVisible());
    about->close();
  }});
  QTest::keyClick(desktop.window, Qt::Key_F2);
  EXPECT_TRUE(looked);
}

TEST(Windows, CloseEndsARunningPassAtOnce) {
  Desktop desktop;
  for (int row = 0; row < 5; ++row) desktop.AddRow("machine");
  desktop.main.cmdCheck.Press();
  EXPECT_EQ(desktop.window->cursor().shape(), Qt::BusyCursor);
  desktop.window->close();
  desktop.Settle();
  EXPECT_EQ(desktop.Cell(2, kStatusColumn), "");
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
}

}  // namespace kestrava::test
