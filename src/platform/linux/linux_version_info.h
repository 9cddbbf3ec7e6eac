#pragma once

#include "platform/version_info.h"

namespace kestrava {

/// The version of this desktop layer, told as that of the file "shell32.dll": it understands the
/// whole record of an icon, as shells of major version 6 do. No other file has version information.
class LinuxVersionInfo final : public VersionInfo {
 public:
  std::int32_t GetFileVersionInfoSizeA(const std::string& file) override;
  std::int32_t GetFileVersionInfoA(const std::string& file, std::span<std::byte> buffer) override;
  std::int32_t VerQueryValueA(std::span<const std::byte> buffer, const std::string& block,
                              std::span<const std::byte>& found) override;
};

}  // namespace kestrava
