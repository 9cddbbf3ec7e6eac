#pragma once

#include <QSettings>

#include "platform/settings_store.h"

namespace kestrava {

/// The user's settings in the native format of `QSettings`, under the organisation and application
/// name `kProgramTitle`: `$XDG_CONFIG_HOME/Kestrava/Kestrava.conf` on Linux.
class QtSettingsStore : public SettingsStore {
 public:
  QtSettingsStore();

  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& defaultValue) override;
  void WriteSetting(const std::string& section, const std::string& key,
                    const std::string& value) override;

 private:
  /// Nobody's lock on the settings may hold the program up.
  void BreakOldLock() const;

  QSettings settings_;
};

}  // namespace kestrava
