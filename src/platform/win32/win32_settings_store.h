#pragma once

#include <map>
#include <utility>

#include "platform/settings_store.h"

namespace kestrava {

/// The user's settings in the registry, below HKEY_CURRENT_USER\Software\Kestrava, each section a
/// key: as text that people can read (REG_SZ) where a text stands for exactly these bytes, else as
/// they are (REG_BINARY).
class Win32SettingsStore final : public SettingsStore {
 public:
  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& defaultValue) override;
  void WriteSetting(const std::string& section, const std::string& key,
                    const std::string& value) override;

 private:
  std::map<std::pair<std::string, std::string>, std::string> unstored_;  ///< for this run only
};

}  // namespace kestrava
