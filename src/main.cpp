#include <QApplication>
#include <QIcon>
#include <QSessionManager>
#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <string_view>

#include "help/command_line.h"
#include "help/web_pages.h"
#include "monitor/frmMain.h"
#include "platform/linux/termination_signals.h"
#include "platform/linux_desktop/display_loss.h"
#include "platform/linux_desktop/linux_desktop.h"
#include "platform/linux_desktop/session_bus.h"
#include "platform/program_title.h"
#include "platform/qt/wayland.h"

namespace {

constexpr std::string_view kMoreHelp =
    "\nThe options of Qt's programs, such as -session and -platform, are taken, too.\n";

/// The toolkit ends at the end of the desktop's session if every window lets itself be closed,
/// which a dialog doesn't while the program waits for it. This one unloads the main window instead.
class Application final : public QApplication {
 public:
  Application(int& argc, char* argv[], const std::function<void()>& unloadMainWindow)
      : QApplication(argc, argv), unloadMainWindow_(unloadMainWindow) {}

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::Quit || !unloadMainWindow_) return QApplication::event(event);
    unloadMainWindow_();
    return true;
  }

 private:
  const std::function<void()>& unloadMainWindow_;
};

/// The first argument that is none of the toolkit's, with whatever follows an option; null for
/// none. The toolkit's are those of the documentation of QGuiApplication and QApplication, with one
/// dash or two, and it ends the program with a core where there is no display before it looks at
/// the rest.
const char* FindUnknown(int argc, char* argv[]) {
  constexpr std::string_view kWithValue[] = {
      "-platform",        "-platformpluginpath", "-platformtheme", "-plugin",
      "-qwindowgeometry", "-geometry",           "-qwindowicon",   "-icon",
      "-session",         "-qwindowtitle",       "-title",         "-display",
      "-style",           "-stylesheet"};
  constexpr std::string_view kAlone[] = {"-reverse", "-widgetcount"};
  for (int i = 1; i < argc; ++i) {
    std::string_view argument = argv[i];
    if (argument.starts_with("--")) argument.remove_prefix(1);
    if (std::ranges::find(kAlone, argument) != std::end(kAlone)) continue;
    const std::string_view option = argument.substr(0, argument.find('='));
    if (std::ranges::find(kWithValue, option) == std::end(kWithValue)) return argv[i];
    if (option == argument) ++i;
  }
  return nullptr;
}

/// Shows the manual that was installed with the program, or that of the sources in the folder where
/// it was built, while the program has no web site.
void ShowManualWithoutWebSite(kestrava::LinuxDesktop& desktop) {
  if (kestrava::HasWebSite()) return;
  const std::filesystem::path folder = desktop.Services().programFolder;
  for (const char* manual : {"web/KVManual.html", "../share/kestrava/manual/KVManual.html"}) {
    desktop.Programs().ShowInstead(kestrava::ManualUrl(), folder / manual);
  }
}

/// Lets the desktop's session start the program again. The toolkit's own command names the program
/// as it was called, which says nothing in another folder.
void SetRestartCommand(QSessionManager& session) {
  session.setRestartHint(QSessionManager::RestartIfRunning);
  session.setRestartCommand({QCoreApplication::applicationFilePath(), QStringLiteral("-session"),
                             session.sessionId() + '_' + session.sessionKey()});
}

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 22, 32, 48, 64}) {
    icon.addFile(QStringLiteral(":/kestrava-%1.png").arg(size), QSize(size, size));
  }
  return icon;
}

/// The program's life, from the start of its windows to their end.
/// @param unloadMainWindow is given what ends it.
void Run(Application& application, std::function<void()>& unloadMainWindow,
         kestrava::TerminationSignals& terminationSignals) {
  using namespace kestrava;

  LinuxDesktop desktop;
  ShowManualWithoutWebSite(desktop);
  frmMain mainWindow(desktop.Services());
  const DisplayLoss displayLoss([&mainWindow] { mainWindow.StoreLastListFile(); });
  unloadMainWindow = [&] { desktop.Windows().Unload(mainWindow); };
  desktop.Watch(terminationSignals);
  for (const auto request :
       {&QGuiApplication::commitDataRequest, &QGuiApplication::saveStateRequest}) {
    QObject::connect(&application, request, &application, &SetRestartCommand);
  }
  QObject::connect(&desktop.EventLoop(), &QtEventLoop::Ended, &application,
                   [] { QApplication::exit(); });

  desktop.Windows().Load(mainWindow);
  if (!mainWindow.State().InTray) desktop.Windows().Show(mainWindow);
  if (!desktop.EventLoop().HasEnded()) QApplication::exec();
}

}  // namespace

int main(int argc, char* argv[]) {
  using namespace kestrava;

  for (int i = 1; i < argc; ++i) {
    const auto answer = AnswerTo(argv[i], kMoreHelp);
    if (!answer) continue;
    std::fputs(answer->c_str(), stdout);
    return std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
  }

  if (const char* unknown = FindUnknown(argc, argv)) {
    std::fputs(RefusalOf(unknown).c_str(), stderr);
    return kExitUsage;
  }

  // A file that may grow no further, or a reader of standard error that has gone, is an error of
  // the write that meets it. Programs that are started find every signal as it is by default.
  for (const int signal : {SIGXFSZ, SIGPIPE}) std::signal(signal, SIG_IGN);
  // A parent that ignores it hands that down, and nobody could wait for a program's end any more.
  std::signal(SIGCHLD, SIG_DFL);
  std::function<void()> unloadMainWindow;
  TerminationSignals terminationSignals([&unloadMainWindow] { unloadMainWindow(); });

  QApplication::setOrganizationName(kProgramTitle);
  QApplication::setApplicationName(kProgramTitle);
  QApplication::setDesktopFileName(kProgramName);
  WithholdSilentSessionBus();
  Application application(argc, argv, unloadMainWindow);
  // The application object has just taken over the user's locale. Dates follow it, but numbers in
  // stored texts always have a point.
  std::setlocale(LC_NUMERIC, "C");
  // All texts are English; a translated toolkit must not mirror the windows alone.
  QApplication::setLayoutDirection(Qt::LeftToRight);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(ProgramIcon());

  Run(application, unloadMainWindow, terminationSignals);
  // The toolkit's own end on Wayland, in Qt 6.4, waits for its thread that reads what the
  // compositor sends. That one was seen in wl_display_read_events for ever.
  if (OnWayland()) std::_Exit(EXIT_SUCCESS);
  return 0;
}
