#include "platform/linux/browser_program.h"

#include <cstdlib>
#include <gio/gio.h>
#include <memory>
#include <span>
#include <string_view>

namespace kestrava {

namespace {

using Command = std::vector<std::string>;

/// Gives back what GLib handed out.
struct Release {
  void operator()(GAppInfo* handler) const { g_object_unref(handler); }
  void operator()(char* text) const { g_free(text); }
  void operator()(char** words) const { g_strfreev(words); }
};

/// The words of a command line, or nothing if it isn't one or its program can't be told by a path.
/// GIO has a function of its own for the program of a handler, but it ends a quoted path at its
/// first blank.
Command WordsOf(const char* commandLine) {
  int count = 0;
  char** parsed = nullptr;
  if (!g_shell_parse_argv(commandLine, &count, &parsed, nullptr)) return {};
  const std::unique_ptr<char*, Release> owner(parsed);
  const std::unique_ptr<char, Release> path(g_find_program_in_path(*parsed));
  if (!path || std::string_view(path.get()).find('"') != std::string_view::npos) return {};
  const std::span<char*> words(parsed, static_cast<std::size_t>(count));
  Command command(words.begin(), words.end());
  command.front() = path.get();
  return command;
}

Command OfHandler(GAppInfo* handler) {
  const char* commandLine = g_app_info_get_commandline(handler);
  Command command = commandLine ? WordsOf(commandLine) : Command{};
  // It finds the handler by itself, and knows the other ways of starting one.
  return command.empty() ? WordsOf("xdg-open") : command;
}

}  // namespace

std::vector<std::string> FindBrowser() {
  const std::unique_ptr<GAppInfo, Release> handler(g_app_info_get_default_for_uri_scheme("http"));
  if (handler) return OfHandler(handler.get());
  if (const char* list = std::getenv("BROWSER")) {
    const std::unique_ptr<char*, Release> commands(g_strsplit(list, ":", -1));
    for (char** line = commands.get(); *line; ++line) {
      if (Command command = WordsOf(*line); !command.empty()) return command;
    }
  }
  return WordsOf("x-www-browser");
}

std::vector<std::string> WithAddress(const std::vector<std::string>& command,
                                     const std::string& address) {
  Command words;
  bool hasPlace = false;
  for (const std::string& word : command) {
    std::string text;
    for (std::size_t i = 0; i < word.size(); ++i) {
      if (word[i] != '%' || i + 1 == word.size() || words.empty()) {
        text += word[i];
        continue;
      }
      // freedesktop.org, Desktop Entry, "The Exec key"; "%s" stands in $BROWSER.
      const char code = word[++i];
      const bool isPlace = std::string_view("uUfFs").find(code) != std::string_view::npos;
      if (isPlace) text += address;
      if (code == '%') text += code;
      hasPlace = hasPlace || isPlace;
    }
    // A word that was nothing but a code for something else, such as the icon, is left out.
    if (!text.empty() || word.empty()) words.push_back(std::move(text));
  }
  if (!hasPlace) words.push_back(address);
  return words;
}

}  // namespace kestrava
