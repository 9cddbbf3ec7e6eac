#include <clocale>
#include <string_view>

#include "help/program_info.h"
#include "help/web_pages.h"
#include "monitor/frmMain.h"
#include "platform/win32/session_end.h"
#include "platform/win32/windows_desktop.h"

int main() {
  using namespace kestrava;

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
