#include <clocale>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "help/program_info.h"
#include "help/web_pages.h"
#include "monitor/frmMain.h"
#include "platform/win32/command_line.h"
#include "platform/win32/session_end.h"
#include "platform/win32/windows_desktop.h"

namespace {

constexpr int kExitUsage = 2;

constexpr const char* kHelp =
    "Usage: kestrava [OPTION]\n"
    "Watch which of your machines can be reached.\n"
    "\n"
    "  --help     print this text and end\n"
    "  --version  print the version and end\n";

/// Answers the arguments, where there are any. @return the program's exit status then.
std::optional<int> AnswerArguments() {
  using namespace kestrava;

  const auto arguments = Arguments();
  for (const auto& argument : arguments) {
    const std::string version = std::string(kProgramTitle) + ' ' + kProgramVersion + '\n';
    const bool isHelp = argument == "--help";
    if (!isHelp && argument != "--version") continue;
    return Tell(Answer::Output, isHelp ? kHelp : version) ? EXIT_SUCCESS : EXIT_FAILURE;
  }
  if (arguments.empty()) return std::nullopt;
  Tell(Answer::Error, "kestrava: unknown argument " + arguments.front() + '\n');
  return kExitUsage;
}

}  // namespace

int main() {
  using namespace kestrava;

  if (const auto status = AnswerArguments()) return *status;

  // Dates follow the user's locale; numbers in stored texts always have a point.
  std::setlocale(LC_TIME, "");

  WindowsDesktop desktop;
  // The web site's host is one that nobody can have (RFC 2606): the manual lies with the program.
  if (std::string_view(kWebHost).ends_with(".example")) {
    const std::string folder = desktop.Services().programFolder;
    desktop.Programs().ShowInstead(ManualUrl(), folder + "\\web\\KVManual.html");
  }
  frmMain mainWindow(desktop.Services());
  const SessionEnd sessionEnd([&] { desktop.Windows().Unload(mainWindow); });

  desktop.Windows().Load(mainWindow);
  if (!mainWindow.State().InTray) desktop.Windows().Show(mainWindow);
  desktop.Run();
  desktop.Windows().Unload(mainWindow);
  return 0;
}
