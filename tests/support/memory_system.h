#pragma once

#include <cstring>

#include "platform/clock.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/settings_store.h"
#include "support/memory_files.h"
#include "support/memory_windows.h"

namespace kestrava::test {

class TestClock : public Clock {
 public:
  std::chrono::local_seconds Now() const override { return now; }
  std::chrono::local_seconds InMinutes(std::int32_t minutes) const override {
    return now + std::chrono::minutes(minutes) + ahead;
  }

  std::chrono::local_seconds now{std::chrono::local_days{std::chrono::year{2026} / 3 / 9} +
                                 std::chrono::hours{14}};
  std::chrono::minutes ahead{0};  ///< what summer time, soon to begin, adds to the readings to come
};

/// Texts by their keys.
using StoredSettings = std::map<std::string, std::string>;

class MemorySettings : public Faulty, public SettingsStore {
 public:
  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& defaultValue) override {
    const auto found = values.find(section + "/" + key);
    return Fails("ReadSetting") || found == values.end() ? defaultValue : found->second;
  }
  void WriteSetting(const std::string& section, const std::string& key,
                    const std::string& value) override {
    values[section + "/" + key] = value;
    writes.push_back(key + "=" + value);
  }

  std::map<std::string, std::string> values;
  Texts writes;
};

/// A registry with one key, and programs that are only noted.
class MemoryRegistry : public Faulty, public Registry, public Processes {
 public:
  struct Value {
    std::string name;
    std::int32_t type;
    std::string data;
  };
  std::int32_t RegOpenKeyExA(std::int32_t key, const std::string& name, std::int32_t,
                             std::int32_t access, std::int32_t& opened) override {
    const bool known = key == HKEY_CLASSES_ROOT && name == "http\\shell\\open\\command";
    if (!known || access != KEY_READ || Fails("RegOpenKeyExA")) return ERROR_FILE_NOT_FOUND;
    ++openKeys;
    opened = 5;
    return ERROR_SUCCESS;
  }
  std::int32_t RegEnumValueA(std::int32_t, std::int32_t index, std::span<char> name,
                             std::int32_t& nameLength, std::int32_t& type,
                             std::span<std::byte> data, std::int32_t& dataLength) override {
    const bool fails = Fails("RegEnumValueA");
    if (fails || index >= static_cast<std::int32_t>(values.size())) return ERROR_NO_MORE_ITEMS;
    const Value& value = values[static_cast<std::size_t>(index)];
    if (value.name.size() >= name.size() || value.data.size() > data.size()) return ERROR_MORE_DATA;
    value.name.copy(name.data(), name.size());
    std::memcpy(data.data(), value.data.data(), value.data.size());
    nameLength = static_cast<std::int32_t>(value.name.size());
    dataLength = static_cast<std::int32_t>(value.data.size());
    type = value.type;
    return ERROR_SUCCESS;
  }
  std::int32_t RegCloseKey(std::int32_t) override {
    --openKeys;
    return Fails("RegCloseKey") ? ERROR_FILE_NOT_FOUND : ERROR_SUCCESS;
  }

  void Start(const std::string& commandLine) override {
    MayRaise("Start");
    started.push_back(commandLine);
  }

  std::vector<Value> values;
  int openKeys = 0;
  Texts started;
};

}  // namespace kestrava::test
