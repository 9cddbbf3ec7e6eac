#include "platform/linux/linux_registry.h"

#include <cstring>

#include "platform/linux/browser_program.h"

namespace kestrava {

std::int32_t LinuxRegistry::RegOpenKeyExA(std::int32_t key, const std::string& name, std::int32_t,
                                          std::int32_t, std::int32_t& opened) {
  if (key != HKEY_CLASSES_ROOT || name != kBrowserKey) return ERROR_FILE_NOT_FOUND;
  const auto command = FindBrowser();
  if (command.empty()) return ERROR_FILE_NOT_FOUND;
  opened = ++lastHandle_;
  open_.emplace(opened, '"' + command.front() + '"');
  return ERROR_SUCCESS;
}

std::int32_t LinuxRegistry::RegEnumValueA(std::int32_t key, std::int32_t index,
                                          std::span<char> name, std::int32_t& nameLength,
                                          std::int32_t& type, std::span<std::byte> data,
                                          std::int32_t& dataLength) {
  const auto found = open_.find(key);
  if (found == open_.end()) return ERROR_INVALID_HANDLE;
  if (index != 0) return ERROR_NO_MORE_ITEMS;
  const std::string& value = found->second;
  const std::size_t size = value.size() + 1;
  const bool fits =
      UsedRoom(nameLength, name.size()) > 0 && UsedRoom(dataLength, data.size()) >= size;
  dataLength = static_cast<std::int32_t>(size);
  if (!fits) return ERROR_MORE_DATA;
  name.front() = '\0';
  nameLength = 0;
  type = REG_SZ;
  std::memcpy(data.data(), value.c_str(), size);
  return ERROR_SUCCESS;
}

std::int32_t LinuxRegistry::RegCloseKey(std::int32_t key) {
  return open_.erase(key) == 1 ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

}  // namespace kestrava
