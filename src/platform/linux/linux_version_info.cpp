#include "platform/linux/linux_version_info.h"

#include <cstring>

namespace kestrava {

namespace {

/// VS_FIXEDFILEINFO; its layout and values are from verrsrc.h of the Windows SDK.
struct FixedFileInfo {
  std::uint32_t signature = 0xFEEF04BD;
  std::uint32_t structureVersion = 0x00010000;
  std::uint32_t fileVersionMs = 6U << 16;  ///< major version in the high word, minor in the low
  std::uint32_t fileVersionLs = 0;
  std::uint32_t productVersionMs = 6U << 16;
  std::uint32_t productVersionLs = 0;
  std::uint32_t flagsMask = 0x3F;
  std::uint32_t flags = 0;
  std::uint32_t os = 0x00040004;  ///< VOS_NT_WINDOWS32
  std::uint32_t type = 2;         ///< VFT_DLL
  std::uint32_t subtype = 0;
  std::uint32_t dateMs = 0;
  std::uint32_t dateLs = 0;
};
static_assert(sizeof(FixedFileInfo) == 52);

}  // namespace

std::int32_t LinuxVersionInfo::GetFileVersionInfoSizeA(const std::string& file) {
  return file == "shell32.dll" ? static_cast<std::int32_t>(sizeof(FixedFileInfo)) : 0;
}

std::int32_t LinuxVersionInfo::GetFileVersionInfoA(const std::string& file,
                                                   std::span<std::byte> buffer) {
  if (GetFileVersionInfoSizeA(file) == 0 || buffer.size() < sizeof(FixedFileInfo)) return 0;
  const FixedFileInfo info;
  std::memcpy(buffer.data(), &info, sizeof(info));
  return 1;
}

std::int32_t LinuxVersionInfo::VerQueryValueA(std::span<const std::byte> buffer,
                                              const std::string& block,
                                              std::span<const std::byte>& found) {
  if (block != "\\" || buffer.size() < sizeof(FixedFileInfo)) return 0;
  found = buffer.first(sizeof(FixedFileInfo));
  return 1;
}

}  // namespace kestrava
