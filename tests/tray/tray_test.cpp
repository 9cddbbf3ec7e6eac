#include <QContextMenuEvent>
#include <QDBusConnectionInterface>
#include <QMenu>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <csignal>

#include "desktop/desktop.h"
#include "desktop/qt/widgets.h"
#include "hosts.h"
#include "platform/linux_desktop/session_bus.h"
#include "platform/message_box.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/text.h"

namespace kestrava::test {

const QString kFailed =
    "Kestrava failed to communicate with the <b>& Connection\nClick Here to See More Information";
constexpr auto kEmbedded = "QSystemTrayIconSys";
constexpr auto kStandIn = "trayStandIn";

static QWidget* Widget(const char* name) { return WidgetOf(Find(name)); }
static bool Shows(const char* window) { return std::ranges::count(VisibleWindows(), window) > 0; }
static bool UntilShown(const char* window) {
  return Until([&] { return Shows(window); });
}
static bool UntilGone(const char* window) {
  return Until([&] { return !Shows(window); });
}

/// Acts in the menu that comes up next, whatever dialog is open.
static void InMenu(const std::function<void(QWidget* menu)>& act) {
  QTimer::singleShot(20, [=] {
    QWidget* menu = QApplication::activePopupWidget();
    if (!menu) return InMenu(act);
    act(menu);
  });
}

/// The main window, started in the tray, with one dead row.
struct TrayDesktop : Desktop {
  TrayDesktop() : Desktop("1") {
    AddRow("<b>&");
    EXPECT_FALSE(Shows("frmMain"));
  }
  void ExpectExitFromMenu(const std::function<void()>& open) {
    InDialogs({[](Part popup) {
      auto& menu = dynamic_cast<QMenu&>(*WidgetOf(popup));
      QStringList entries;
      for (const QAction* entry : menu.actions()) {
        if (entry->isVisible()) entries.push_back(entry->text());
      }
      EXPECT_EQ(entries.join('|').toStdString(), "Restore Kestrava||E&xit");
      EXPECT_EQ(menu.defaultAction()->text(), "Restore Kestrava");
      menu.setActiveAction(menu.actions().back());
      Press(popup, Key::Enter);
    }});
    open();
    const auto& loop = dynamic_cast<QtEventLoop&>(real.eventLoop);
    EXPECT_TRUE(Until([&] { return loop.HasEnded() && VisibleWindows().empty(); }));
  }
  void ExpectOwnBalloonThatRestores() {
    ASSERT_TRUE(UntilShown("balloon"));
    EXPECT_EQ(Widget("balloon")->accessibleDescription(), kFailed);
    EXPECT_FALSE(Shows("frmMain"));
    QTest::mouseClick(Widget("balloon"), Qt::LeftButton);
    EXPECT_TRUE(UntilShown("frmMain") && UntilGone("balloon"));
  }
};

/// Each test needs a process of its own, as the toolkit can be started only once.
struct Tray : testing::Test {
  void SetUp() override {
    for (const char* program : {"Xvfb", "xdotool", "trayer", "dbus-daemon"}) {
      if (QStandardPaths::findExecutable(program).isEmpty()) GTEST_SKIP() << "no " << program;
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
  }
};

TEST_F(Tray, AnEmbeddingTrayThatComesAndGoesWithoutABus) {
  const Screen screen;
  TrayDesktop desktop;
  ASSERT_TRUE(UntilShown(kStandIn));
  auto tray = std::make_unique<Program>("trayer", QStringList{"--edge", "top"});
  ASSERT_TRUE(UntilShown(kEmbedded) && UntilGone(kStandIn));
  desktop.main.cmdCheck.Press();
  EXPECT_TRUE(UntilShown("balloon"));
  EXPECT_TRUE(UntilGone("balloon")) << "it closes by itself";
  desktop.main.cmdCheck.Press();
  desktop.ExpectOwnBalloonThatRestores();
  desktop.main.mnuFileTray.Click.Raise();

  QTest::qWait(500);
  const QPoint icon = Widget(kEmbedded)->mapToGlobal(QPoint(5, 5));
  InDialogs({[&](Part box) {
    InMenu([&](QWidget* menu) {
      tray.reset();
      EXPECT_TRUE(UntilShown(kStandIn)) << "the tray dies while the menu is open";
      menu->close();
    });
    const Program rightClick("xdotool", {"mousemove", QString::number(icon.x()),
                                         QString::number(icon.y()), "click", "3"});
    EXPECT_TRUE(UntilShown(kStandIn));
    Close(box);
  }});
  desktop.real.messageBoxes.MsgBox("The icon's menu opens all the same.", MessageIcon::None);
  desktop.ExpectExitFromMenu([&] {
    QContextMenuEvent event(QContextMenuEvent::Mouse, {}, {});
    QApplication::sendEvent(Widget(kStandIn), &event);
  });
}

TEST_F(Tray, AStatusNotifierHostAndANotificationService) {
  const Bus bus;
  const Screen screen;
  Services services;
  services.watcher.silent = true;
  services.bus.registerService(services.kNotifications);
  services.bus.registerService(services.kTray);
  TrayDesktop desktop;
  ASSERT_TRUE(UntilShown(kStandIn));
  services.watcher.silent = false;
  services.bus.unregisterService(services.kTray);
  services.bus.registerService(services.kTray);
  ASSERT_TRUE(UntilGone(kStandIn));
  desktop.main.cmdCheck.Press();
  EXPECT_TRUE(Until([&] { return services.Shows(); }));
  EXPECT_EQ(services.notifications.shown, "default: Kestrava: " + kFailed.toHtmlEscaped());
  services.ClickFrom(QDBusConnection::sessionBus());
  // What the bus says of its services comes after the click, and is served after it.
  QDBusConnection::sessionBus().interface()->registeredServiceNames();
  QCoreApplication::processEvents();
  EXPECT_FALSE(Shows("frmMain")) << "somebody else's click";
  services.ClickFrom(services.bus);
  EXPECT_TRUE(UntilShown("frmMain"));
  EXPECT_TRUE(Until([&] { return !services.Shows(); })) << "it closes by itself";
  EXPECT_FALSE(Shows("balloon"));

  desktop.main.mnuFileTray.Click.Raise();
  const QString menu =
      services.Call("/StatusNotifierItem/Menu", "GetLayout", {0, -1, QStringList()});
  const QRegularExpression visible(R"re(: "([^"]*)"], "visible" = \[Variant\(bool\): true)re");
  QString entries;
  for (const auto& entry : visible.globalMatch(menu)) entries += entry.captured(1) + '|';
  EXPECT_EQ(entries.toStdString(), "Restore Kestrava|separator|E_xit|") << menu.toStdString();
  desktop.ExpectExitFromMenu([&] { services.Call("/StatusNotifierItem", "ContextMenu", {0, 0}); });
}

TEST_F(Tray, ABusThatIsSilentAtTheStartAndAnswersLater) {
  const Bus bus;
  const auto daemon = static_cast<pid_t>(bus.daemon.processId());
  kill(daemon, SIGSTOP);
  WithholdSilentSessionBus();
  const Screen screen;
  const TrayDesktop desktop;
  ASSERT_TRUE(UntilShown(kStandIn));
  kill(daemon, SIGCONT);
  Services services;
  services.bus.registerService(services.kTray);
  EXPECT_TRUE(UntilGone(kStandIn));
}

struct TrayWithFault : Tray, testing::WithParamInterface<const char*> {};

TEST_P(TrayWithFault, ABalloonOfItsOwnWhereTheNotificationServiceFails) {
  const Bus bus;
  const Screen screen;
  Services services;
  services.notifications.silentAt = GetParam();
  services.bus.registerService(services.kNotifications);
  TrayDesktop desktop;
  desktop.main.cmdCheck.Press();
  desktop.ExpectOwnBalloonThatRestores();
}

INSTANTIATE_TEST_SUITE_P(Faults, TrayWithFault, testing::Values("GetCapabilities", "Notify"));

TEST(NotifyIconText, LeavesOutACharacterThatTheFieldCutsAndShowsWhatNobodySees) {
  for (const auto& [field, text] : {std::pair("B\xC3\xBC\xE2\x82", "B\u00FC"),
                                    {"\xE2\x82\xAC\xF0", "\u20AC"},
                                    {"\x80\x80\x80\x80", "\u20AC\u20AC\u20AC\u20AC"},
                                    {"a\r\nb\x01", "a\nb[U+0001]"}}) {
    EXPECT_EQ(ToShownField(field), text);
  }
}

}  // namespace kestrava::test
