#pragma once

#include "platform/notification_area.h"
#include "platform/version_info.h"
#include "platform/window_messages.h"
#include "support/memory_files.h"
#include "support/memory_windows.h"

namespace kestrava::test {

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

}  // namespace kestrava::test
