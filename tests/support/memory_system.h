#pragma once

#include <cstring>
#include <ctime>

#include "platform/clock.h"
#include "platform/notification_area.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/settings_store.h"
#include "platform/version_info.h"
#include "platform/window_messages.h"
#include "support/memory_files.h"
#include "support/memory_windows.h"

namespace kestrava::test {

class TestClock : public Clock {
 public:
  std::chrono::local_seconds Now() const override { return now; }
  std::chrono::local_seconds InMinutes(std::int32_t minutes) const override {
    return now + std::chrono::minutes(minutes) + ahead;
  }
  std::string GeneralDateText(std::chrono::local_seconds moment) const override {
    const std::time_t seconds = moment.time_since_epoch().count();
    char text[64];
    return {text, std::strftime(text, sizeof text, "%x %X", std::gmtime(&seconds))};
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

/// A notification area that keeps what it was told, the shell's version, and the window's messages.
class MemoryShell : public Faulty,
                    public NotificationArea,
                    public VersionInfo,
                    public WindowMessages {
 public:
  static constexpr std::int32_t kWindow = 4711;
  static constexpr std::int32_t kIcon = 4712;
  static constexpr std::int32_t kFirstProcedure = 100;
  static constexpr std::int32_t kHook = 101;

  std::int32_t Shell_NotifyIconA(std::int32_t message, const NOTIFYICONDATA& record) override {
    if (Fails("Shell_NotifyIconA")) return 0;
    told.emplace_back(message, record);
    return 1;
  }

  std::int32_t GetFileVersionInfoSizeA(const std::string& file) override {
    return file == "shell32.dll" && !Fails("GetFileVersionInfoSizeA") ? 52 : 0;
  }
  std::int32_t GetFileVersionInfoA(const std::string&, std::span<std::byte> buffer) override {
    if (Fails("GetFileVersionInfoA")) return 0;
    buffer[10] = std::byte{6};
    return 1;
  }
  std::int32_t VerQueryValueA(std::span<const std::byte> buffer, const std::string& block,
                              std::span<const std::byte>& found) override {
    found = buffer;
    return block == "\\" && !Fails("VerQueryValueA") ? 1 : 0;
  }

  std::int32_t WindowHandle(const Form&) const override { return kWindow; }
  std::int32_t IconHandle(const Form&) const override { return kIcon; }
  std::int32_t AddressOf(WindowProc hook) override {
    hook_ = std::move(hook);
    return kHook;
  }
  std::int32_t SetWindowLongA(std::int32_t hWnd, int index, std::int32_t address) override {
    if (hWnd != kWindow || index != GWL_WNDPROC || Fails("SetWindowLongA")) return 0;
    calls.push_back("proc " + std::to_string(address));
    if (address == kHook) procedure = hook_;
    return kFirstProcedure;
  }
  std::int32_t CallWindowProcA(std::int32_t address, std::int32_t hWnd, std::int32_t uMsg,
                               std::int32_t wParam, std::int32_t lParam) override {
    return address + hWnd + uMsg + wParam + lParam;
  }
  void SetForegroundWindow(std::int32_t hWnd) override {
    MayRaise("SetForegroundWindow");
    calls.push_back("front " + std::to_string(hWnd));
  }
  void PopupMenu(Form&, const MenuEntry& menu, const MenuEntry& defaultEntry) override {
    MayRaise("PopupMenu");
    calls.push_back(std::string("popup ") + menu.Spec().name + " " + defaultEntry.Spec().name);
    if (wait) wait();
    if (onPopup) onPopup();
  }
  std::vector<std::pair<std::int32_t, NOTIFYICONDATA>> told;
  Texts calls;
  WindowProc procedure;  ///< what answers the desktop's messages to the window
  Act onPopup;
  Act wait;  ///< while the menu is open

 private:
  WindowProc hook_;
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
