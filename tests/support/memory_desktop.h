#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cstring>
#include <gtest/gtest.h>
#include <set>
#include <span>

#include "editing/frmNewConn.h"
#include "editing/frmRemoveconn.h"
#include "monitor/frmMain.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/icmp.h"
#include "platform/message_box.h"
#include "platform/notification_area.h"
#include "platform/processes.h"
#include "platform/prompt_box.h"
#include "platform/registry.h"
#include "platform/remote_desktop.h"
#include "platform/settings_store.h"
#include "platform/version_info.h"
#include "platform/window_messages.h"
#include "platform/window_system.h"
#include "platform/windows_sockets.h"
#include "support/memory_files.h"

namespace kestrava::test {

/// What the user does in one turn of the event loop, or in a modal wait.
using Act = std::function<void()>;

using Texts = std::vector<std::string>;

/// Windows, message boxes and the event loop without a screen. A scripted user acts in the turns,
/// and answers what waits for him when it has been open for some of them.
class MemoryDesktop : public WindowSystem,
                      public EventLoop,
                      public MessageBoxes,
                      public PromptBoxes {
 public:
  void Load(Form& form) override {
    loaded.insert(&form);
    form.Load.Raise();
  }
  void Show(Form& form) override { form.SetVisible(true); }
  void ShowModal(Form& form) override {
    form.SetVisible(true);
    std::function<void(Form&)> act = [](Form&) {};
    if (!dialogs.empty()) {
      act = std::move(dialogs.front());
      dialogs.pop_front();
    }
    Wait();
    if (!ended) act(form);
    form.SetVisible(false);
  }
  void Unload(Form& form) override {
    if (loaded.erase(&form) == 0) return;
    form.Unload.Raise();
    form.SetVisible(false);
    if (form.Spec().style == FormStyle::MainWindow) ended = true;
  }
  TwipSize ScreenSize(const Form&) const override { return {15360, 11520}; }
  TwipSize OuterSize(const Form& form) const override {
    return {form.Spec().width + 90, form.Spec().height + 375};
  }

  void MsgBox(const std::string& text, MessageIcon icon) override {
    boxes.push_back({text, icon});
    Wait();
  }
  std::unique_ptr<OpenMsgBox> ShowMsgBox(const std::string& text, MessageIcon icon,
                                         std::function<void()> answered) override {
    boxes.push_back({text, icon});
    return std::make_unique<OpenBox>(*this, std::move(answered));
  }
  YesNo AskYesNo(const std::string& text, const std::string& title) override {
    questions.push_back(title + " " + text);
    Wait();
    return ended ? YesNo::No : overwrite;
  }
  std::string InputBox(const std::string&, const std::string&, const std::string&) override {
    const auto answer = onPrompt;
    Wait();
    return ended ? "" : answer();
  }

  /// One turn of the event loop: first the user acts, then what waited for the turn goes on.
  void Turn() {
    ++turns;
    if (onTurn && !ended) onTurn();
    if (!openBoxes.empty()) std::exchange(openBoxes.front()->answered, [] {})();
    EndTurn();
  }
  /// A modal wait of a dialog, a box or a menu.
  void Wait() {
    ++waits;
    for (int turn = openFor; turn > 0 && !ended; --turn) Turn();
    --waits;
  }

  std::set<Form*> loaded;
  std::deque<std::function<void(Form&)>> dialogs;  ///< what the user does in each dialog to come
  std::vector<std::pair<std::string, MessageIcon>> boxes;
  Texts questions;
  YesNo overwrite = YesNo::Yes;           ///< the user's answer to each question
  std::function<std::string()> onPrompt;  ///< gives the user's answer
  Act onTurn;
  int openFor = 1;  ///< turns until the user answers what waits for him
  int waits = 0;    ///< how many of those are open
  long turns = 0;
  bool ended = false;

 private:
  struct OpenBox : OpenMsgBox {
    OpenBox(MemoryDesktop& all, std::function<void()> act)
        : desktop(all), answered(std::move(act)) {
      desktop.openBoxes.push_back(this);
    }
    ~OpenBox() override { std::erase(desktop.openBoxes, this); }
    MemoryDesktop& desktop;
    std::function<void()> answered;
  };

  bool TurnIsSpared() override { return false; }
  void BeginTurn() override {}

  std::deque<OpenBox*> openBoxes;
};

/// How one machine behaves.
struct Machine {
  std::int16_t dataSize = 0;
  std::int32_t roundTripTime = 10000;
  std::int32_t status = kEchoTimedOut;
  int connectsAfter = -1;  ///< turns until a Remote Desktop connect stands; -1 for never
  int dropsBefore = 0;     ///< attempts that end in the error of a dropped connection
  int connectError = 0;    ///< number of the error that `Connect` raises, 0 for none
  bool lingers = false;    ///< a dropped connection stays up until the count is used up
  int echoTurns = 0;       ///< turns until the echo has come to its end
};

inline constexpr Machine kAnswering{.dataSize = 9, .roundTripTime = 1, .status = 0};

/// A scripted network: the echo service, the socket layer and the Remote Desktop control.
class MemoryNetwork : public Faulty,
                      public IcmpService,
                      public WindowsSockets,
                      public MsRdpClient2 {
 public:
  explicit MemoryNetwork(MemoryDesktop& desktop) : desktop_(desktop) {}

  IcmpHandle IcmpCreateFile() override {
    calls.push_back("create");
    return Fails("IcmpCreateFile") ? kNoHandle : 77;
  }
  static std::string Dotted(std::int32_t address) {
    const auto bytes = std::bit_cast<std::array<unsigned char, 4>>(address);
    std::string text = std::to_string(bytes[0]);
    for (const std::size_t index : {1U, 2U, 3U}) text += "." + std::to_string(bytes[index]);
    return text;
  }
  Task<std::uint32_t> IcmpSendEcho(IcmpHandle handle, std::int32_t address, std::string_view data,
                                   const IP_OPTION_INFORMATION* options, EchoReply& reply,
                                   std::uint32_t replySize, std::uint32_t timeout) override {
    calls.push_back("echo " + std::string(data) + " " + std::to_string(timeout) + " " +
                    std::to_string(replySize) + (options ? " options" : ""));
    if (onEcho) onEcho();
    const bool fails = Fails("IcmpSendEcho") || handle == kNoHandle;
    const Machine machine = fails ? Machine{.status = 11050} : At(Dotted(address));
    for (int turn = 0; turn < machine.echoTurns; ++turn) co_await desktop_.PumpEvents();
    reply.DataSize = machine.dataSize;
    reply.RoundTripTime = machine.roundTripTime;
    reply.Status = machine.status;
    co_return machine.dataSize > 0 ? 1 : 0;
  }
  bool IcmpCloseHandle(IcmpHandle handle) override {
    calls.push_back("close " + std::to_string(handle));
    return !Fails("IcmpCloseHandle");
  }

  int WSAStartup(std::uint16_t version, WSADATA& data) override {
    calls.push_back("start " + std::to_string(version));
    data.wVersion = socketVersion;
    data.iMaxSockets = maxSockets;
    return Fails("WSAStartup") ? 1 : 0;
  }
  int WSACleanup() override {
    calls.push_back("cleanup");
    return Fails("WSACleanup") ? -1 : 0;
  }

  std::int16_t Connected() override {
    MayRaise("Connected");
    if (std::exchange(dropPending_, false)) {
      state_ = 0;
      throw RuntimeError(kErrorPeerDropped, "the peer dropped the connection");
    }
    if (state_ == 2 && desktop_.turns >= connectTurn_) state_ = 1;
    if (state_ == 3 && !lingers_) state_ = 0;
    return state_;
  }
  void SetServer(const std::string& server) override {
    MayRaise("SetServer");
    server_ = server;
  }
  void Connect() override {
    MayRaise("Connect");
    Machine& machine = At(server_);
    attempts.push_back(server_);
    if (machine.connectError != 0)
      throw RuntimeError(ErrorNumber{machine.connectError}, "refused to connect");
    dropPending_ = machine.dropsBefore > 0 && machine.dropsBefore-- > 0;
    state_ = machine.connectsAfter < 0 ? 0 : 2;
    lingers_ = machine.lingers;
    connectTurn_ = desktop_.turns + machine.connectsAfter;
  }
  void Disconnect() override {
    MayRaise("Disconnect");
    ++disconnects;
    state_ = 3;
  }

  Machine& At(const std::string& address) { return machines[address]; }

  std::map<std::string, Machine> machines;  ///< by dotted address; one not named here is silent
  Texts calls;                              ///< of the echo service and the socket layer, in order
  Texts attempts;                           ///< servers that `Connect` was asked for
  int disconnects = 0;
  Act onEcho;
  std::uint16_t socketVersion = 0x101;
  std::int16_t maxSockets = 1024;

 private:
  static constexpr IcmpHandle kNoHandle = -1;

  MemoryDesktop& desktop_;
  std::string server_;
  std::int16_t state_ = 0;  // 3 stands for a connection that is being dropped
  long connectTurn_ = 0;
  bool dropPending_ = false;
  bool lingers_ = false;
};

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

/// The real main window on the in-memory desktop.
struct Scenario {
  MemoryDesktop desktop;
  MemoryNetwork network{desktop};
  TestClock clock;
  MemorySettings settings;
  MemoryShell shell;
  MemoryRegistry registry;
  MemoryFiles files;
  ScriptedDialog fileDialog;
  frmMain window{Platform{desktop, desktop, desktop, desktop, fileDialog, clock, network, network,
                          network, settings, files, shell, shell, shell, registry, registry,
                          "/program"}};

  /// @param stored the settings that an earlier run left behind, by key.
  explicit Scenario(const StoredSettings& stored = {}, const Fault& fault = {}) {
    for (Faulty* part : Parts()) part->fault = fault;
    shell.wait = [this] { desktop.Wait(); };
    fileDialog.wait = [this] {
      desktop.Wait();
      if (desktop.ended) fileDialog.choices.clear();
    };
    for (const auto& [key, value] : stored) settings.values["Preferences/" + key] = value;
    desktop.Load(window);
    if (!window.State().InTray) desktop.Show(window);
  }

  /// All that can fail.
  std::array<Faulty*, 5> Parts() { return {&network, &settings, &shell, &registry, &files}; }

  std::string Cell(int row, int col) const { return window.grdServers.TextAt(row, col); }
  int Rows() const { return window.grdServers.Rows(); }
  Color Lamp(int row) const { return window.grdServers.BackColorAt(row, 0); }

  bool Checking() const { return window.Pointer() == MousePointer::Busy && !desktop.ended; }
  /// Lets the pass that is under way come to its end.
  void Finish() {
    while (Checking()) desktop.Turn();
  }
  void Check() {
    window.cmdCheck.Press();
    Finish();
  }

  /// What the user does in the dialog that opens next.
  template <typename Dialog>
  void InNext(std::function<void(Dialog&)> act) {
    desktop.dialogs.push_back([=](Form& form) { act(dynamic_cast<Dialog&>(form)); });
  }

  /// Adds a row through the add dialog, as a user does.
  void Add(const std::string& name, const std::string& address) {
    InNext<frmNewConn>([=](frmNewConn& dialog) {
      dialog.txtName.SetText(name);
      dialog.txtAddress.SetText(address);
      dialog.cmdSave.Press();
    });
    window.cmdAdd.Press();
  }

  /// Marks rows in the removal dialog and presses Delete.
  void Remove(const std::function<bool(int row)>& isMarked) {
    InNext<frmRemoveconn>([&](frmRemoveconn& dialog) {
      for (int entry = 0; entry < dialog.lstConnections.ListCount(); ++entry) {
        dialog.lstConnections.SetSelected(entry, isMarked(entry + 1));
      }
      dialog.cmdDelete.Press();
    });
    window.cmdRemove.Press();
  }
};

}  // namespace kestrava::test
