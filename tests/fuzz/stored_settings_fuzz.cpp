// Starts the program on a settings file of any bytes, and stores them as a setting.
#include <QGuiApplication>

#include "fuzz/fuzz.h"
#include "platform/qt/qt_settings_store.h"
#include "settings/preferences.h"
#include "support/memory_desktop.h"

using namespace kestrava;
namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fs::path folder = FreshHome() + "/Kestrava";
  static int words = 0;
  static const QGuiApplication application(words, nullptr);
  const std::string bytes(data, data + size);
  fs::create_directory(folder);
  std::ofstream(folder / "Kestrava.conf") << bytes;
  // QSettings tells a changed file by its time.
  static auto written = fs::last_write_time(folder / "Kestrava.conf");
  fs::last_write_time(folder / "Kestrava.conf", written += std::chrono::seconds(1));

  test::StoredSettings stored;
  {
    QtSettingsStore store;
    for (const auto& setting : {kAutoLoadList, kLastListFile, kInterval, kTips, kTray, kStartup}) {
      stored[setting.key] = ReadText(store, setting);
    }
    WriteText(store, kLastListFile, bytes);
  }
  QtSettingsStore later;
  Require(ReadText(later, kLastListFile) == bytes);
  Require(ReadText(later, kInterval) == stored["Interval"]);
  const test::Scenario program(stored);
  const auto& due = program.window.State().NextCheckTime;
  Require(due.size() == 5 && std::stoi(due) < 24 && due[2] == ':' && std::stoi(due.substr(3)) < 60);
  Require(program.window.State().InTray == (stored["Tray"] == "1"));
  return 0;
}
