#include <array>
#include <filesystem>

#include "desktop/win32/handles.h"
#include "help/RegAPI.h"
#include "platform/win32/windows_desktop.h"

namespace kestrava::test {

namespace {

const HKEY kClasses = reinterpret_cast<HKEY>(static_cast<std::intptr_t>(HKEY_CLASSES_ROOT));

/// The user's files and settings lie where they go with the test.
struct Home {
  Home() {
    std::filesystem::create_directories(folder);
    for (const HKEY root : {kClasses, HKEY_CURRENT_USER}) {
      HKEY own = nullptr;
      RegCreateKeyW(HKEY_CURRENT_USER, (key + (root == kClasses ? L"\\c" : L"\\u")).c_str(), &own);
      RegOverridePredefKey(root, own);
    }
  }
  ~Home() {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str());
    std::filesystem::remove_all(folder);
  }

  const std::wstring name = L"KestravaTest" + std::to_wstring(GetCurrentProcessId());
  const std::wstring key = L"Software\\" + name;
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / name;
};
const Home home;

class Win32System final : public System {
 public:
  ~Win32System() override {
    // The end of this program is not that of the next one.
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) continue;
  }
  Platform Services() override { return desktop_.Services(); }
  void Take(frmMain& main) override { UseMainWindow(main); }

 private:
  WindowsDesktop desktop_;
};

}  // namespace

std::string HomeFolder() { return ToBytes(home.folder.wstring()) + '\\'; }

void UseBrowser(const std::string& file) {
  std::array<wchar_t, MAX_PATH> program{};
  GetModuleFileNameW(nullptr, program.data(), MAX_PATH);
  const std::wstring command = L'"' + std::wstring(program.data()) + L"\" \"%1\"";
  RegSetKeyValueW(kClasses, ToWide(kBrowserKey).c_str(), nullptr, REG_SZ, command.c_str(),
                  static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t)));
  SetEnvironmentVariableW(L"SHOWN_PAGES", ToWide(file).c_str());
}

std::unique_ptr<System> MakeSystem() { return std::make_unique<Win32System>(); }

}  // namespace kestrava::test
