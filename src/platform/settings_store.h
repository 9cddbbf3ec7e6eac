#pragma once

#include <string>

namespace kestrava {

/// Named texts of the user that survive from one run of the program to the next. Neither operation
/// fails: what can't be read reads as its default, and what can't be stored is remembered for this
/// run only.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// Exactly the bytes that were written, in this run or an earlier one; `defaultValue` where there
  /// is no such key.
  virtual std::string ReadSetting(const std::string& section, const std::string& key,
                                  const std::string& defaultValue) = 0;

  /// Stores the bytes of `value` in place of any earlier value, at once.
  virtual void WriteSetting(const std::string& section, const std::string& key,
                            const std::string& value) = 0;
};

}  // namespace kestrava
