#pragma once

#include <map>
#include <string>

#include "platform/registry.h"

struct HKEY__;

namespace kestrava {

/// The system's own registry. Its handles are longer than the program's, so each of those stands
/// for one of them. Texts come as UTF-8.
class Win32Registry final : public Registry {
 public:
  Win32Registry() = default;
  ~Win32Registry() override;
  Win32Registry(const Win32Registry&) = delete;
  Win32Registry& operator=(const Win32Registry&) = delete;

  std::int32_t RegOpenKeyExA(std::int32_t key, const std::string& name, std::int32_t options,
                             std::int32_t access, std::int32_t& opened) override;
  std::int32_t RegEnumValueA(std::int32_t key, std::int32_t index, std::span<char> name,
                             std::int32_t& nameLength, std::int32_t& type,
                             std::span<std::byte> data, std::int32_t& dataLength) override;

  std::int32_t RegCloseKey(std::int32_t key) override;

 private:
  HKEY__* Find(std::int32_t key) const;

  std::map<std::int32_t, HKEY__*> open_;
  std::int32_t lastHandle_ = 0;
};

}  // namespace kestrava
