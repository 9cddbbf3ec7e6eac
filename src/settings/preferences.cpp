#include "settings/preferences.h"

#include "general/conversion.h"
#include "platform/runtime_error.h"
#include "platform/settings_store.h"

namespace kestrava {

namespace {

constexpr const char* kSection = "Preferences";

}  // namespace

std::string ReadText(SettingsStore& store, const Setting& setting) {
  return store.ReadSetting(kSection, setting.key, setting.defaultValue);
}

bool ReadBoolean(SettingsStore& store, const Setting& setting) {
  const auto stored = ToBoolean(ReadText(store, setting));
  return stored ? *stored : setting.defaultValue == std::string_view("1");
}

bool ReadsOne(SettingsStore& store, const Setting& setting) {
  return ReadText(store, setting) == "1";
}

std::int32_t ReadMinutes(SettingsStore& store, const Setting& setting) {
  const auto minutes = ToMinutes(ReadText(store, setting));
  return minutes ? *minutes : ToWholeNumber(setting.defaultValue);
}

std::optional<std::int32_t> ToMinutes(std::string_view text) {
  try {
    return ToWholeNumber(text);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

void WriteText(SettingsStore& store, const Setting& setting, const std::string& value) {
  store.WriteSetting(kSection, setting.key, value);
}

void WriteFlag(SettingsStore& store, const Setting& setting, bool flag) {
  WriteText(store, setting, flag ? "1" : "0");
}

}  // namespace kestrava
