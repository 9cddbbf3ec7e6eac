#include "platform/win32/win32_settings_store.h"

#include <vector>

#include "platform/program_title.h"
#include "platform/registry.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

std::wstring KeyOf(const std::string& section) {
  return L"Software\\" + ToWide(kProgramTitle) + L'\\' + ToWide(section);
}

bool Store(const std::string& section, const std::string& key, const std::string& value) {
  const std::wstring text = ToWide(value);
  const bool isText = ToBytes(text) == value && text.find(L'\0') == text.npos;
  const void* data = isText ? static_cast<const void*>(text.c_str()) : value.data();
  const std::size_t size = isText ? (text.size() + 1) * sizeof(wchar_t) : value.size();
  return RegSetKeyValueW(HKEY_CURRENT_USER, KeyOf(section).c_str(), ToWide(key).c_str(),
                         isText ? DWORD{REG_SZ} : REG_BINARY, data,
                         static_cast<DWORD>(size)) == ERROR_SUCCESS;
}

}  // namespace

std::string Win32SettingsStore::ReadSetting(const std::string& section, const std::string& key,
                                            const std::string& defaultValue) {
  if (const auto found = unstored_.find({section, key}); found != unstored_.end()) {
    return found->second;
  }
  DWORD type = 0;
  DWORD size = 0;
  std::vector<wchar_t> data;
  LONG result = 0;
  do {
    data.resize(size / sizeof(wchar_t) + 2);
    size = static_cast<DWORD>(data.size() * sizeof(wchar_t));
    result = RegGetValueW(HKEY_CURRENT_USER, KeyOf(section).c_str(), ToWide(key).c_str(),
                          RRF_RT_REG_SZ | RRF_RT_REG_BINARY, &type, data.data(), &size);
  } while (result == ERROR_MORE_DATA);
  if (result != ERROR_SUCCESS) return defaultValue;
  if (type == REG_BINARY) return {reinterpret_cast<const char*>(data.data()), size};
  // A text ends at its NUL, which the system adds where it is missing.
  return ToBytes(data.data());
}

void Win32SettingsStore::WriteSetting(const std::string& section, const std::string& key,
                                      const std::string& value) {
  if (Store(section, key, value)) {
    unstored_.erase({section, key});
  } else {
    unstored_[{section, key}] = value;
  }
}

}  // namespace kestrava
