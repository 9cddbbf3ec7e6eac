#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kestrava {

class SettingsStore;

/// One of the stored settings: its key and the text that stands for a missing one.
struct Setting {
  const char* key;
  const char* defaultValue;
};

inline constexpr Setting kAutoLoadList{"AutoLoadList", "0"};
inline constexpr Setting kLastListFile{"LastListFile", ""};
inline constexpr Setting kInterval{"Interval", "15"};
inline constexpr Setting kTips{"Tips", "1"};
inline constexpr Setting kTray{"Tray", "0"};
inline constexpr Setting kStartup{"Startup", "0"};

/// The text as it was written.
std::string ReadText(SettingsStore& store, const Setting& setting);

/// "True" and "False" in any case of letters; false for zero and true for any other number. Any
/// other text counts as the default, "1" or "0".
bool ReadBoolean(SettingsStore& store, const Setting& setting);

/// True for exactly "1".
bool ReadsOne(SettingsStore& store, const Setting& setting);

/// A number of minutes. A text that is no whole number of 32 bits counts as the default.
std::int32_t ReadMinutes(SettingsStore& store, const Setting& setting);

/// The minutes that a text stands for, or nothing if it is no whole number of 32 bits.
std::optional<std::int32_t> ToMinutes(std::string_view text);

void WriteText(SettingsStore& store, const Setting& setting, const std::string& value);

/// Writes "1" or "0".
void WriteFlag(SettingsStore& store, const Setting& setting, bool flag);

}  // namespace kestrava
