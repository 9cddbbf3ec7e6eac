#include <QMenu>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "hosts.h"
#include "platform/linux/linux_version_info.h"
#include "platform/qt/qt_message_boxes.h"
#include "platform/qt/tray/notify_icon_text.h"
#include "platform/qt/tray/qt_notification_area.h"
#include "support/memory_desktop.h"

namespace kestrava::test {
namespace {

const QString kFailed =
    "Kestrava failed to communicate with the <b>& Connection\nClick Here to See More Information";
constexpr auto kEmbedded = "QSystemTrayIconSys";

bool Until(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 8000); }

QWidget* Visible(const char* name) {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->objectName() == name && widget->isVisible()) return widget;
  }
  return nullptr;
}

struct Screen {
  Screen() {
    QPixmap picture(16, 16);
    picture.fill(Qt::red);
    QApplication::setWindowIcon(picture);
  }
  Program server{"Xvfb", {"-displayfd", "1", "-nolisten", "tcp"}};
  bool named = qputenv("DISPLAY", ":" + server.FirstLine());
  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  QApplication application{argc, argv};
};

/// The real main window, started in the tray, with one dead row.
struct Desktop {
  Desktop() {
    pulse.callOnTimeout([this] { slowest = std::max(slowest, sinceBeat.restart()); });
    pulse.start(10);
    settings.values = {{"Preferences/Tray", "1"}, {"Preferences/Tips", "1"}};
    area.ExportMenu(main, main.mnufile, main.mnuFileRestore);
    windows.Load(main);
    main.grdServers.SetRows(2);
    main.grdServers.SetRow(1);
    main.grdServers.SetCol(1);
    main.grdServers.SetText("<b>&");
    main.grdServers.SetCol(2);
    main.grdServers.SetText("127.0.0.1");
    EXPECT_FALSE(Visible("frmMain"));
  }
  ~Desktop() {
    EXPECT_LT(slowest, 1000) << "something held up the event loop";
    windows.Unload(main);
  }
  /// Acts in the popup menu that comes next.
  void InPopup(const std::function<void(QMenu&)>& act) {
    popupWatch.disconnect();
    popupWatch.callOnTimeout([this, act] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (!menu) return;
      popupWatch.stop();
      QStringList entries;
      for (const QAction* entry : menu->actions()) {
        if (entry->isVisible()) entries.push_back(entry->text());
      }
      EXPECT_EQ(entries.join('|').toStdString(), "Restore Kestrava||E&xit");
      EXPECT_EQ(menu->defaultAction()->text(), "Restore Kestrava");
      ++popups;
      act(*menu);
    });
    popupWatch.start(20);
  }
  void ExpectExitFromPopup(const std::function<void()>& open) {
    InPopup([](QMenu& menu) {
      menu.setActiveAction(menu.actions().back());
      QTest::keyClick(&menu, Qt::Key_Return);
    });
    open();
    EXPECT_TRUE(Until([&] { return eventLoop.HasEnded() && !QApplication::activePopupWidget(); }));
    for (const QWidget* widget : QApplication::topLevelWidgets()) EXPECT_FALSE(widget->isVisible());
  }
  void ExpectOwnBalloonThatRestores() {
    ASSERT_TRUE(Until([] { return Visible("balloon"); }));
    EXPECT_EQ(Visible("balloon")->accessibleDescription(), kFailed);
    EXPECT_FALSE(Visible("frmMain"));
    QTest::mouseClick(Visible("balloon"), Qt::LeftButton);
    EXPECT_TRUE(Until([] { return Visible("frmMain") && !Visible("balloon"); }));
  }

  QtEventLoop eventLoop;
  QtMessageBoxes boxes{eventLoop};
  QtWindowSystem windows{eventLoop};
  QtWindowMessages messages{windows, eventLoop};
  QtNotificationArea area{messages};
  LinuxVersionInfo versions;
  MemoryDesktop unused;
  MemoryNetwork network{unused};
  MemoryRegistry registry;
  MemorySettings settings;
  TestClock clock;
  ScriptedDialog dialog;
  MemoryFiles files;
  frmMain main{Platform{windows, eventLoop, boxes, unused, dialog, clock, network, network, network,
                        settings, files, area, versions, messages, registry, registry, ""}};
  QTimer pulse, popupWatch;
  QElapsedTimer sinceBeat;
  qint64 slowest = 0;
  int popups = 0;
};

class Tray : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* program : {"Xvfb", "xdotool", "trayer", "dbus-daemon"}) {
      if (QStandardPaths::findExecutable(program).isEmpty()) GTEST_SKIP() << "no " << program;
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
  }
  /// The toolkit can be started once in a process, so each desktop gets one of its own.
  static void Apart(const std::function<void()>& test) {
    const pid_t child = fork();
    if (child == 0) {
      test();
      std::fflush(nullptr);
      std::_Exit(HasFailure());
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
};

TEST_F(Tray, AnEmbeddingTrayThatComesAndGoesWithoutABus) {
  Apart([] {
    const Screen screen;
    Desktop desktop;
    const auto standIn = [] { return Visible("trayStandIn"); };
    ASSERT_TRUE(Until(standIn));
    std::unique_ptr<Program> tray;
    for (int start = 0; start < 2; ++start) {
      tray.reset();
      ASSERT_TRUE(Until(standIn));
      tray = std::make_unique<Program>("trayer", QStringList{"--edge", "top"});
      ASSERT_TRUE(Until([&] { return Visible(kEmbedded) && !standIn(); }));
    }
    desktop.main.cmdCheck.Press();
    EXPECT_TRUE(Until([] { return Visible("balloon"); }));
    EXPECT_TRUE(Until([] { return !Visible("balloon"); })) << "it closes by itself";
    desktop.main.cmdCheck.Press();
    desktop.ExpectOwnBalloonThatRestores();
    desktop.main.mnuFileTray.Click.Raise();

    QTest::qWait(500);
    const QPoint icon = Visible(kEmbedded)->mapToGlobal(QPoint(5, 5));
    desktop.InPopup([&](QMenu& menu) {
      tray.reset();
      EXPECT_TRUE(Until(standIn)) << "the tray dies while the menu is open";
      menu.close();
    });
    const auto text = [](int number) { return QString::number(number); };
    const Program rightClick("xdotool",
                             {"mousemove", text(icon.x()), text(icon.y()), "click", "3"});
    EXPECT_TRUE(Until([&] { return desktop.popups == 1 && standIn(); }));
    desktop.ExpectExitFromPopup([&] {
      QContextMenuEvent event(QContextMenuEvent::Mouse, {}, {});
      QApplication::sendEvent(standIn(), &event);
    });
  });
}

TEST_F(Tray, AStatusNotifierHostAndANotificationService) {
  Apart([] {
    const Bus bus;
    const Screen screen;
    Services services;
    services.bus.registerService(services.kNotifications);
    Desktop desktop;
    for (int start = 1; start <= 2; ++start) {
      services.bus.unregisterService(services.kTray);
      ASSERT_TRUE(Until([] { return Visible("trayStandIn"); }));
      services.bus.registerService(services.kTray);
      const auto icons = [&] { return services.watcher.items.size(); };
      ASSERT_TRUE(Until([&] { return services.Look(icons) == start; }));
      EXPECT_FALSE(Visible("trayStandIn"));
    }
    desktop.main.cmdCheck.Press();
    EXPECT_TRUE(Until([&] { return !services.Shown().isEmpty(); }));
    EXPECT_EQ(services.Shown(), "default: Kestrava: " + kFailed.toHtmlEscaped());
    services.Click();
    EXPECT_TRUE(Until([] { return Visible("frmMain"); }));
    EXPECT_TRUE(Until([&] { return services.Shown().isEmpty(); })) << "it closes by itself";
    EXPECT_FALSE(Visible("balloon"));

    desktop.main.mnuFileTray.Click.Raise();
    const QString menu = services.Call("/MenuBar", "GetLayout", {0, -1, QStringList()});
    const QRegularExpression visible(R"re(: "([^"]*)"], "visible" = \[Variant\(bool\): true)re");
    QString entries;
    for (const auto& entry : visible.globalMatch(menu)) entries += entry.captured(1) + '|';
    EXPECT_EQ(entries.toStdString(), "Restore Kestrava|separator|E_xit|") << menu.toStdString();
    desktop.ExpectExitFromPopup([&] {
      services.Call("/StatusNotifierItem", "ContextMenu", {0, 0});
    });
    EXPECT_EQ(desktop.popups, 1);
  });
}

TEST_F(Tray, ABalloonOfItsOwnWhereTheNotificationServiceFails) {
  for (const QString fault : {"GetCapabilities", "Notify", "no actions", "dies", "absent"}) {
    SCOPED_TRACE(fault.toStdString());
    Apart([&] {
      const Bus bus;
      const Screen screen;
      Services services;
      services.notifications.silentAt = fault;
      if (fault == "no actions") services.notifications.capabilities.clear();
      if (fault != "absent") services.bus.registerService(services.kNotifications);
      Desktop desktop;
      desktop.main.cmdCheck.Press();
      if (fault == "dies") {
        EXPECT_TRUE(Until([&] { return !services.Shown().isEmpty(); }));
        EXPECT_FALSE(Visible("balloon"));
        services.bus.unregisterService(services.kNotifications);
      }
      desktop.ExpectOwnBalloonThatRestores();
      if (fault != "Notify") return;
      services.bus.send(services.notifications.late.createReply(41U));
      EXPECT_TRUE(Until([&] { return services.Shown().isEmpty(); })) << "it came late";
    });
  }
}

TEST(NotifyIconText, LeavesOutACharacterThatTheFieldCuts) {
  using namespace std::string_view_literals;
  const std::pair<std::string_view, QString> texts[] = {
      {"ab\0  "sv, "ab"},
      {"B\xC3\xBC\xE2\x82"sv, "B\u00FC"},
      {"B\xC3\xBC\xF0"sv, "B\u00FC"},
      {"B\xFCro\0"sv, "B\u00FCro"},
      {"\xE2\x82\xAC"sv, "\u20AC"},
      {"a\r\nb\x01"sv, "a\nb "},
      {"\x80\x80\x80\x80"sv, "\u20AC\u20AC\u20AC\u20AC"}};
  for (const auto& [field, text] : texts) EXPECT_EQ(NotifyIconText(field), text);
}

}  // namespace
}  // namespace kestrava::test
