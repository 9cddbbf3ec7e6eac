#include "desktop/desktop.h"
#include "platform/message_box.h"

namespace kestrava::test {
using namespace std::chrono_literals;

/// What a screen reader says while Tab goes once around the window.
static std::string NamesByTab(Part window) {
  std::vector<std::string> names;
  do {
    names.push_back(FocusIn(window));
    Press(window, Key::Tab);
  } while (FocusIn(window) != names.front() && names.size() < 9);
  std::string joined;
  for (const std::string& name : names) joined += name + '|';
  return joined;
}

TEST(Dialogs, TabReachesEveryControlByItsNameAndTheLampSpeaks) {
  Desktop desktop;
  desktop.AddRow("machine", "127.0.0.1");
  Settle();
  EXPECT_EQ(ShownText(1, kLampColumn), "Unchecked");
  desktop.main.cmdCheck.Press();
  desktop.Finish();
  EXPECT_EQ(ShownText(1, kLampColumn), "Online");

  for (Button* button : {&desktop.main.cmdCheck, &desktop.main.cmdRemove}) button->SetEnabled(true);
  EXPECT_EQ(NamesByTab(desktop.window),
            "Connections|Add New Connection|Check Now !|Remove Connection(s)|");
  const std::pair<const char*, std::string> dialogs[] = {
      {"cmdRemove", "Remove Connections|Delete|Cancel|"},
      {"cmdAdd", "Connection Name|Connection IP Address|Save|Cancel|"},
      {"mnuConnPref",
       "Connection Status Check Interval (mins)|Show Balloon Popup when Running in System Tray|"
       "Start Monitor in System Tray|Save Changes|Cancel|"},
      {"mnuHelpAbout", "www.kestrava.example|"}};
  for (const auto& [way, names] : dialogs) {
    InDialogs({[&, &names = names](Part dialog) {
      EXPECT_EQ(NamesByTab(dialog), names);
      Press(dialog, Key::Escape);
    }});
    desktop.Open(way);
  }
}

TEST(Dialogs, OnlyYesIsYes) {
  const Desktop desktop;
  TakeKeys(desktop.window);
  const std::pair<std::vector<Key>, YesNo> cases[] = {{{Key::Enter}, YesNo::Yes},
                                                      {{Key::Escape}, YesNo::No},
                                                      {{Key::Tab, Key::Space}, YesNo::No},
                                                      {{Key::Tab, Key::Enter}, YesNo::No},
                                                      {{}, YesNo::No}};
  for (const auto& [keys, answer] : cases) {
    InDialogs({[&, &keys = keys](Part box) {
      EXPECT_EQ(Read(box), "title|text||?");
      for (const Key key : keys) Press(box, key);
      if (keys.empty()) Close(box);
    }});
    EXPECT_EQ(desktop.real.messageBoxes.AskYesNo("text", "title"), answer);
  }
  bool answered = false;
  InDialogs({[](Part box) {
    EXPECT_EQ(Read(box), "Kestrava|text||!");
    Press(box, Key::Enter);
  }});
  const auto box = desktop.real.messageBoxes.ShowMsgBox("text", MessageIcon::Exclamation,
                                                        [&] { answered = true; });
  EXPECT_TRUE(Until([&] { return answered; }));
}

TEST(Dialogs, APassGoesOnInTheirWaits) {
  for (const char* way : {"cmdAdd", "mnuFileLoad"}) {
    Desktop desktop;
    for (int row = 0; row < 3; ++row) desktop.AddRow("machine");
    const std::function<void()> closeAfterPass = [&] {
      if (desktop.main.Pointer() == MousePointer::Busy) return After(20ms, closeAfterPass);
      Close(TopDialog());
    };
    InDialogs({[&](Part) {
      desktop.main.cmdCheck.Press();
      closeAfterPass();
    }});
    desktop.Open(way);
    EXPECT_EQ(desktop.Texts(kStatusColumn), "Offline ();Offline ();Offline ();");
  }
}

TEST(Dialogs, TheEndClosesThemAndTheirBoxes) {
  for (const char* way : {"cmdAdd", "mnuFileLoad"}) {
    Desktop desktop;
    InDialogs({[&](Part) {
                 EXPECT_EQ(desktop.real.messageBoxes.AskYesNo("waiting", "title"), YesNo::No);
               },
               [](Part) { Pick("mnuFileExit"); }});
    desktop.Open(way);
    EXPECT_EQ(VisibleWindows().size(), 0U);
  }
}

}  // namespace kestrava::test
