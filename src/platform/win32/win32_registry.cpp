#include "platform/win32/win32_registry.h"

#include <cstring>
#include <vector>

#include "platform/win32/wide_text.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

constexpr DWORD kLongestName = 16384;  // characters of a value's name, with its NUL

}  // namespace

Win32Registry::~Win32Registry() {
  for (const auto& [handle, key] : open_) ::RegCloseKey(key);
}

std::int32_t Win32Registry::RegOpenKeyExA(std::int32_t key, const std::string& name,
                                          std::int32_t options, std::int32_t access,
                                          std::int32_t& opened) {
  HKEY native = nullptr;
  const LONG result = RegOpenKeyExW(Find(key), ToWide(name).c_str(), static_cast<DWORD>(options),
                                    static_cast<REGSAM>(access), &native);
  if (result != 0) return result;
  opened = ++lastHandle_;
  open_.emplace(opened, native);
  return ERROR_SUCCESS;
}

std::int32_t Win32Registry::RegEnumValueA(std::int32_t key, std::int32_t index,
                                          std::span<char> name, std::int32_t& nameLength,
                                          std::int32_t& type, std::span<std::byte> data,
                                          std::int32_t& dataLength) {
  const std::size_t room = UsedRoom(dataLength, data.size());
  std::vector<wchar_t> nativeName(kLongestName);
  std::vector<wchar_t> nativeData(room + 1);
  DWORD nativeNameLength = kLongestName;
  auto nativeSize = static_cast<DWORD>(room * sizeof(wchar_t));
  DWORD nativeType = 0;
  const LONG result =
      RegEnumValueW(Find(key), static_cast<DWORD>(index), nativeName.data(), &nativeNameLength,
                    nullptr, &nativeType, reinterpret_cast<BYTE*>(nativeData.data()), &nativeSize);
  if (result == ERROR_MORE_DATA) dataLength = static_cast<std::int32_t>(nativeSize);
  if (result != 0) return result;
  std::string bytes;
  type = static_cast<std::int32_t>(nativeType);
  if (type == REG_SZ) {
    nativeData[nativeSize / sizeof(wchar_t)] = L'\0';
    bytes = ToBytes(nativeData.data()) + '\0';
  } else {
    bytes.assign(reinterpret_cast<const char*>(nativeData.data()), nativeSize);
  }
  const std::string nameBytes = ToBytes({nativeName.data(), nativeNameLength});
  const bool fits = UsedRoom(nameLength, name.size()) > nameBytes.size() && room >= bytes.size();
  dataLength = static_cast<std::int32_t>(bytes.size());
  if (!fits) return ERROR_MORE_DATA;
  std::memcpy(name.data(), nameBytes.c_str(), nameBytes.size() + 1);
  nameLength = static_cast<std::int32_t>(nameBytes.size());
  std::memcpy(data.data(), bytes.data(), bytes.size());
  return ERROR_SUCCESS;
}

std::int32_t Win32Registry::RegCloseKey(std::int32_t key) {
  const auto found = open_.find(key);
  if (found == open_.end()) return ERROR_INVALID_HANDLE;
  const LONG result = ::RegCloseKey(found->second);
  open_.erase(found);
  return result;
}

/// The system's own keys have numbers, as winreg.h has them; the sign goes along.
HKEY Win32Registry::Find(std::int32_t key) const {
  const auto found = open_.find(key);
  if (found != open_.end()) return found->second;
  return key < 0 ? reinterpret_cast<HKEY>(static_cast<std::intptr_t>(key)) : nullptr;
}

}  // namespace kestrava
