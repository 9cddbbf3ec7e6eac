#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace kestrava {

/// The version blocks of the system's own files.
class VersionInfo {
 public:
  virtual ~VersionInfo() = default;

  /// The size in bytes of the version information of `file`; 0 if it has none.
  virtual std::int32_t GetFileVersionInfoSizeA(const std::string& file) = 0;

  /// Fills `buffer` with the version information. @return non-zero for success.
  virtual std::int32_t GetFileVersionInfoA(const std::string& file,
                                           std::span<std::byte> buffer) = 0;

  /// Finds `block` in the version information; "\" is the root block, a VS_FIXEDFILEINFO of 52
  /// bytes (verrsrc.h of the Windows SDK). @return 1 for success, with `found` set.
  virtual std::int32_t VerQueryValueA(std::span<const std::byte> buffer, const std::string& block,
                                      std::span<const std::byte>& found) = 0;
};

}  // namespace kestrava
