#pragma once

#include <map>
#include <string>

#include "platform/registry.h"

namespace kestrava {

/// Answers the one key that names the user's browser, `http\shell\open\command` below
/// HKEY_CLASSES_ROOT. Its one value is nameless and holds the browser's absolute path in double
/// quotes; the words that go with it come back when `LinuxProcesses` starts it. The browser is
/// looked up when the key is opened: the desktop's default handler of http pages; where there is
/// none, the first of the programs of $BROWSER that is there; then `x-www-browser`. For a handler
/// whose command can't be told by a path, `xdg-open` stands.
class LinuxRegistry final : public Registry {
 public:
  /// @return ERROR_FILE_NOT_FOUND for any other key, and where there is no browser.
  std::int32_t RegOpenKeyExA(std::int32_t key, const std::string& name, std::int32_t options,
                             std::int32_t access, std::int32_t& opened) override;
  std::int32_t RegEnumValueA(std::int32_t key, std::int32_t index, std::span<char> name,
                             std::int32_t& nameLength, std::int32_t& type,
                             std::span<std::byte> data, std::int32_t& dataLength) override;

  std::int32_t RegCloseKey(std::int32_t key) override;

 private:
  /// The value of each open key.
  std::map<std::int32_t, std::string> open_;
  std::int32_t lastHandle_ = 0;
};

}  // namespace kestrava
