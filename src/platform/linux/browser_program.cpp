#include "platform/linux/browser_program.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <gio/gio.h>
#include <memory>
#include <span>
#include <sstream>
#include <string_view>

namespace kestrava {
namespace {

/// Gives back what GLib handed out.
struct Release {
  void operator()(GAppInfo* handler) const { g_object_unref(handler); }
  void operator()(char* text) const { g_free(text); }
  void operator()(char** words) const { g_strfreev(words); }
};

/// "%u" and its like, which stand for the address (freedesktop.org, Desktop Entry, "The Exec key"),
/// or "%s" in $BROWSER.
bool IsFieldCode(std::string_view word) {
  return word.size() == 2 && word[0] == '%' && std::isalpha(static_cast<unsigned char>(word[1]));
}

bool CanBeLeftOut(std::string_view word) { return word.starts_with('-') || IsFieldCode(word); }

/// The path of a command's program, or nothing if the command can't be told by a path. GIO has a
/// function of its own for the program of a handler, but it ends a quoted path at its first blank.
std::optional<std::string> ProgramOf(const std::string& command) {
  int count = 0;
  char** parsed = nullptr;
  if (!g_shell_parse_argv(command.c_str(), &count, &parsed, nullptr)) return std::nullopt;
  const std::unique_ptr<char*, Release> owner(parsed);
  const std::span<char*> words(parsed, static_cast<std::size_t>(count));
  if (!std::ranges::all_of(words.subspan(1), CanBeLeftOut)) return std::nullopt;
  const std::unique_ptr<char, Release> path(g_find_program_in_path(words.front()));
  if (!path || std::string_view(path.get()).find('"') != std::string_view::npos) {
    return std::nullopt;
  }
  return path.get();
}

/// The command of the program that the desktop opens http pages with; empty if it has none.
std::string DesktopHandler() {
  const std::unique_ptr<GAppInfo, Release> handler(g_app_info_get_default_for_uri_scheme("http"));
  const char* command = handler ? g_app_info_get_commandline(handler.get()) : nullptr;
  return command ? command : "";
}

}  // namespace

std::optional<std::string> FindBrowserProgram() {
  const std::string handler = DesktopHandler();
  if (auto path = ProgramOf(handler)) return path;
  if (const char* list = std::getenv("BROWSER")) {
    std::istringstream commands(list);
    for (std::string command; std::getline(commands, command, ':');) {
      if (auto path = ProgramOf(command)) return path;
    }
  }
  if (auto path = ProgramOf("x-www-browser")) return path;
  // It finds the handler by itself, and knows the words that go with it.
  return handler.empty() ? std::nullopt : ProgramOf("xdg-open");
}

}  // namespace kestrava
