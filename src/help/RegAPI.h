#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace kestrava {

class MessageBoxes;
class Processes;
class Registry;

/// One value of a registry key.
struct RegistryValue {
  std::string name;
  /// Text for REG_SZ, a number for REG_DWORD, the bytes as they are for every other type.
  std::variant<std::string, std::int32_t, std::vector<std::byte>> data;
};

/// All values of a key, in the order in which the registry gives them; none if the key can't be
/// opened. An empty `keyName` stands for `hKey` itself. A value whose name doesn't fit 260
/// characters, or whose data doesn't fit 4096 bytes, ends the table.
std::vector<RegistryValue> RegistryValueTable(Registry& registry, std::int32_t hKey,
                                              const std::string& keyName);

/// The path, in its quotes, of the program that is registered for web pages, or "Invalid".
std::string FindBrowserCommand(Registry& registry);

/// Web pages in the user's browser.
class RegAPI {
 public:
  RegAPI(Registry& registry, Processes& processes, MessageBoxes& messageBoxes)
      : registry_(registry), processes_(processes), messageBoxes_(messageBoxes) {}

  /// Starts the browser with `url` and doesn't wait for it. Without a browser that starts, a
  /// message says so. To be the last thing that a handler does: the turn of the event loop that the
  /// browser's window wants comes when the handler has returned.
  void OpenUrlInBrowser(const std::string& url);

 private:
  Registry& registry_;
  Processes& processes_;
  MessageBoxes& messageBoxes_;
};

}  // namespace kestrava
