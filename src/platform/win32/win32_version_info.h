#pragma once

#include "platform/version_info.h"

namespace kestrava {

/// The version blocks as the system itself tells them.
class Win32VersionInfo final : public VersionInfo {
 public:
  std::int32_t GetFileVersionInfoSizeA(const std::string& file) override;
  std::int32_t GetFileVersionInfoA(const std::string& file, std::span<std::byte> buffer) override;
  std::int32_t VerQueryValueA(std::span<const std::byte> buffer, const std::string& block,
                              std::span<const std::byte>& found) override;
};

}  // namespace kestrava
