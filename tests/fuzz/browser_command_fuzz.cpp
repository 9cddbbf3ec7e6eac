// Takes any bytes for the command in the desktop file of the program that opens http pages, and for
// what stands after it in that file.
#include <unistd.h>

#include "fuzz/fuzz.h"
#include "help/RegAPI.h"
#include "platform/linux/linux_registry.h"

using namespace kestrava;
namespace fs = std::filesystem;

/// Some programs, and the choice among them. GLib reads the desktop file anew each time, all else
/// once.
static std::string Furnish(const std::string& home) {
  setenv("PATH", home.c_str(), 1);
  fs::create_directory(home + "/applications");
  for (const char* name : {"/a", "/b c", "/q\""}) fs::create_symlink("/bin/true", home + name);
  std::ofstream(home + "/mimeapps.list")
      << "[Default Applications]\nx-scheme-handler/http=b.desktop\n";
  return home + "/applications/b.desktop";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string file = Furnish(FreshHome());
  std::ofstream(file) << "[Desktop Entry]\nType=Application\nName=B\nExec="
                      << std::string(data, data + size);
  LinuxRegistry registry;
  const std::string command = FindBrowserCommand(registry);
  if (command == "Invalid") return 0;
  Require(command.starts_with("\"/") && command.find('"', 1) == command.size() - 1);
  const std::string path = command.substr(1, command.size() - 2);
  Require(fs::is_regular_file(path) && access(path.c_str(), X_OK) == 0);
  return 0;
}
