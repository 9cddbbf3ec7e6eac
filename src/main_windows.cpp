#include <cstdlib>
#include <optional>
#include <string>

#include "help/command_line.h"
#include "help/web_pages.h"
#include "monitor/frmMain.h"
#include "platform/win32/command_line.h"
#include "platform/win32/session_end.h"
#include "platform/win32/windows_desktop.h"

namespace {

/// Answers the arguments, where there are any. @return the program's exit status then.
std::optional<int> AnswerArguments() {
  using namespace kestrava;

  const auto arguments = Arguments();
  for (const auto& argument : arguments) {
    const auto answer = AnswerTo(argument);
    if (answer) return Tell(Answer::Output, *answer) ? EXIT_SUCCESS : EXIT_FAILURE;
  }
  if (arguments.empty()) return std::nullopt;
  Tell(Answer::Error, RefusalOf(arguments.front()));
  return kExitUsage;
}

}  // namespace

int main() {
  using namespace kestrava;

  if (const auto status = AnswerArguments()) return *status;

  WindowsDesktop desktop;
  if (!HasWebSite()) {
    // The manual lies with the program.
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
