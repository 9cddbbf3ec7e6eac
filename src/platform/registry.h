#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace kestrava {

/// Values from winreg.h, winnt.h and winerror.h of the Windows SDK.
inline constexpr std::int32_t HKEY_CLASSES_ROOT = -0x7FFFFFFF - 1;
inline constexpr std::int32_t KEY_READ = 0x20019;
inline constexpr std::int32_t REG_SZ = 1;
inline constexpr std::int32_t REG_DWORD = 4;
inline constexpr std::int32_t ERROR_SUCCESS = 0;
inline constexpr std::int32_t ERROR_FILE_NOT_FOUND = 2;
inline constexpr std::int32_t ERROR_INVALID_HANDLE = 6;
inline constexpr std::int32_t ERROR_MORE_DATA = 234;
inline constexpr std::int32_t ERROR_NO_MORE_ITEMS = 259;

/// The key, below HKEY_CLASSES_ROOT, whose first value is the command of the user's browser.
inline constexpr const char* kBrowserKey = "http\\shell\\open\\command";

/// How much of a buffer of `size` bytes a length of the registry's stands for: never more than it
/// has.
inline std::size_t UsedRoom(std::int32_t length, std::size_t size) {
  return std::min(static_cast<std::size_t>(std::max(length, 0)), size);
}

/// What the desktop has registered: keys with named values. A system without a registry answers the
/// keys that the program asks for from wherever it keeps the same facts.
class Registry {
 public:
  virtual ~Registry() = default;

  /// Opens the key `name` below `key`. @return 0, with `opened` set, or an error code.
  virtual std::int32_t RegOpenKeyExA(std::int32_t key, const std::string& name,
                                     std::int32_t options, std::int32_t access,
                                     std::int32_t& opened) = 0;

  /// Reads value number `index` of an open key, counted from 0.
  /// @param name, data the buffers to fill.
  /// @param nameLength, dataLength in: the sizes of the buffers; out: the length of the name in
  ///   characters and of the data in bytes. The name's closing NUL needs room but doesn't count;
  ///   that of a text's data counts.
  /// @return 0, or an error code when there is no such value or a buffer is too small; of a value
  /// that
  ///   doesn't fit (ERROR_MORE_DATA), `dataLength` tells the size that it needs.
  virtual std::int32_t RegEnumValueA(std::int32_t key, std::int32_t index, std::span<char> name,
                                     std::int32_t& nameLength, std::int32_t& type,
                                     std::span<std::byte> data, std::int32_t& dataLength) = 0;

  virtual std::int32_t RegCloseKey(std::int32_t key) = 0;
};

}  // namespace kestrava
