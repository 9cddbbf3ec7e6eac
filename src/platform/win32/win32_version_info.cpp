#include "platform/win32/win32_version_info.h"

#include "platform/win32/wide_text.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

std::int32_t Win32VersionInfo::GetFileVersionInfoSizeA(const std::string& file) {
  DWORD unused = 0;
  return static_cast<std::int32_t>(GetFileVersionInfoSizeW(ToWide(file).c_str(), &unused));
}

std::int32_t Win32VersionInfo::GetFileVersionInfoA(const std::string& file,
                                                   std::span<std::byte> buffer) {
  return GetFileVersionInfoW(ToWide(file).c_str(), 0, static_cast<DWORD>(buffer.size()),
                             buffer.data());
}

std::int32_t Win32VersionInfo::VerQueryValueA(std::span<const std::byte> buffer,
                                              const std::string& block,
                                              std::span<const std::byte>& found) {
  void* value = nullptr;
  UINT length = 0;
  if (buffer.empty() || !VerQueryValueW(buffer.data(), ToWide(block).c_str(), &value, &length)) {
    return 0;
  }
  found = {static_cast<const std::byte*>(value), length};
  return 1;
}

}  // namespace kestrava
