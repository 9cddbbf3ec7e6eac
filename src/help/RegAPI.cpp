#include "help/RegAPI.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

#include "platform/message_box.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/runtime_error.h"

namespace kestrava {

namespace {

constexpr const char* kInvalid = "Invalid";
constexpr std::size_t kNameSize = 260;
constexpr std::size_t kDataSize = 4096;
constexpr std::int32_t kMostValues = 1000000;

/// A key that is open for as long as it lives; an empty name stands for the parent itself, which
/// stays open.
class OpenKey {
 public:
  OpenKey(Registry& registry, std::int32_t parent, const std::string& name)
      : registry_(registry), handle_(parent), opens_(!name.empty()) {
    if (opens_) result_ = registry_.RegOpenKeyExA(parent, name, 0, KEY_READ, handle_);
  }
  ~OpenKey() {
    if (opens_ && IsOpen()) registry_.RegCloseKey(handle_);
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;

  bool IsOpen() const { return result_ == ERROR_SUCCESS; }
  std::int32_t Handle() const { return handle_; }

 private:
  Registry& registry_;
  std::int32_t handle_;
  bool opens_;
  std::int32_t result_ = ERROR_SUCCESS;
};

std::int32_t AsNumber(std::span<const std::byte> data) {
  std::int32_t number = 0;
  std::memcpy(&number, data.data(), std::min(data.size(), sizeof(number)));
  return number;
}

/// The text without its closing NUL.
std::string AsText(std::span<const std::byte> data) {
  if (data.empty()) return {};
  return {reinterpret_cast<const char*>(data.data()), data.size() - 1};
}

}  // namespace

std::vector<RegistryValue> RegistryValueTable(Registry& registry, std::int32_t hKey,
                                              const std::string& keyName) {
  std::vector<RegistryValue> table;
  const OpenKey key(registry, hKey, keyName);
  if (!key.IsOpen()) return table;
  for (std::int32_t index = 0; index < kMostValues; ++index) {
    std::array<char, kNameSize> name{};
    std::array<std::byte, kDataSize> data{};
    std::int32_t nameLength = kNameSize;
    std::int32_t dataLength = kDataSize;
    std::int32_t type = 0;
    if (registry.RegEnumValueA(key.Handle(), index, name, nameLength, type, data, dataLength) !=
        ERROR_SUCCESS) {
      break;
    }
    RegistryValue value{std::string(name.data(), UsedRoom(nameLength, kNameSize)), {}};
    const std::span<const std::byte> bytes(data.data(), UsedRoom(dataLength, kDataSize));
    if (type == REG_SZ) {
      value.data = AsText(bytes);
    } else if (type == REG_DWORD) {
      value.data = AsNumber(data);
    } else {
      value.data = std::vector<std::byte>(bytes.begin(), bytes.end());
    }
    table.push_back(std::move(value));
  }
  return table;
}

std::string FindBrowserCommand(Registry& registry) {
  const auto table = RegistryValueTable(registry, HKEY_CLASSES_ROOT, kBrowserKey);
  if (table.empty()) return kInvalid;
  const auto* text = std::get_if<std::string>(&table.front().data);
  if (text == nullptr) return kInvalid;
  const std::size_t quote = text->find('"', 1);
  if (quote == std::string::npos) return kInvalid;
  return text->substr(0, quote + 1);
}

void RegAPI::OpenUrlInBrowser(const std::string& url) {
  const auto refuse = [this] {
    messageBoxes_.MsgBox("Unable to open URL. Install browser first!", MessageIcon::None);
  };
  const std::string browser = FindBrowserCommand(registry_);
  if (browser == kInvalid) return refuse();
  try {
    processes_.Start(browser + " " + url);
  } catch (const RuntimeError&) {
    refuse();
  }
}

}  // namespace kestrava
