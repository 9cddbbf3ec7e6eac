#include <algorithm>
#include <array>
#include <filesystem>
#include <map>

#include "desktop/driver.h"
#include "help/RegAPI.h"
#include "platform/win32/message_pump.h"
#include "platform/win32/native_window.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/windows_desktop.h"

namespace kestrava::test {

constexpr const wchar_t* kTestKey = L"Software\\KestravaTest";

static HKEY RootKey(std::int32_t number) {
  return reinterpret_cast<HKEY>(static_cast<std::intptr_t>(number));
}

/// The user's files and registry lie where the test can leave them.
struct Home {
  Home() {
    std::filesystem::create_directories(folder);
    RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey);
    HKEY keys[2]{};
    for (HKEY& key : keys) {
      const std::wstring name = kTestKey + (L"\\" + std::to_wstring(&key - keys));
      RegCreateKeyW(HKEY_CURRENT_USER, name.c_str(), &key);
    }
    RegOverridePredefKey(HKEY_CURRENT_USER, keys[0]);
    RegOverridePredefKey(RootKey(HKEY_CLASSES_ROOT), keys[1]);
  }
  ~Home() {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey);
    std::filesystem::remove_all(folder);
  }

  const std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                       ("kestrava-" + std::to_string(GetCurrentProcessId()));
};
std::string HomeFolder() {
  static const Home home;
  return ToBytes(home.folder.wstring()) + '\\';
}

void UseBrowser(const std::string& file) {
  std::array<wchar_t, MAX_PATH> program{};
  GetModuleFileNameW(nullptr, program.data(), MAX_PATH);
  const std::wstring command = L'"' + std::wstring(program.data()) + L"\" \"%1\"";
  RegSetKeyValueW(RootKey(HKEY_CLASSES_ROOT), ToWide(kBrowserKey).c_str(), nullptr, REG_SZ,
                  command.c_str(), static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t)));
  SetEnvironmentVariableW(L"SHOWN_PAGES", ToWide(file).c_str());
}

static const frmMain* mainForm = nullptr;
static HWND table = nullptr;  ///< its grid, once it was asked for

class Win32System final : public System {
 public:
  Win32System() { HomeFolder(); }
  ~Win32System() override {
    // The end of this program is not that of the next one.
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) continue;
  }
  Platform Services() override { return desktop_.Services(); }
  void Take(frmMain& main) override {
    mainForm = &main;
    table = nullptr;
  }

 private:
  WindowsDesktop desktop_;
};
std::unique_ptr<System> MakeSystem() { return std::make_unique<Win32System>(); }

static HWND HandleOf(Part part) { return reinterpret_cast<HWND>(part); }
static Part PartOf(HWND window) { return reinterpret_cast<Part>(window); }
static HWND MainWindow() { return HandleOf(Find("frmMain")); }
static std::string ClassOf(HWND window) {
  std::array<wchar_t, 64> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return ToBytes(name.data());
}
static std::vector<HWND> Collect(BOOL (*enumerate)(HWND, WNDENUMPROC, LPARAM), HWND parent) {
  std::vector<HWND> windows;
  const auto take = [](HWND window, LPARAM list) -> BOOL {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
  };
  enumerate(parent, take, reinterpret_cast<LPARAM>(&windows));
  return windows;
}
/// The thread's windows that have a title, the topmost first.
static std::vector<HWND> Windows() {
  auto windows =
      Collect([](HWND, WNDENUMPROC take,
                 LPARAM list) { return EnumThreadWindows(GetCurrentThreadId(), take, list); },
              nullptr);
  std::erase_if(windows, [](HWND window) {
    return (GetWindowLongW(window, GWL_STYLE) & WS_CAPTION) != WS_CAPTION;
  });
  return windows;
}
/// The first visible control of that kind.
static HWND FirstOf(HWND window, const std::string& kind) {
  const auto parts = Collect([](HWND parent, WNDENUMPROC take,
                                LPARAM list) { return EnumChildWindows(parent, take, list); },
                             window);
  const auto found = std::ranges::find_if(
      parts, [&](HWND part) { return ClassOf(part) == kind && IsWindowVisible(part); });
  return found == parts.end() ? nullptr : *found;
}
/// Serves a message as the loop of the program, or of the system's own dialogs, does.
static void Give(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (!IsWindow(window)) return;
  MSG record{window, message, wParam, lParam, GetTickCount(), {}};
  const HWND root = GetAncestor(window, GA_ROOT);
  if (NativeWindow::Of(root) || !IsDialogMessageW(root, &record)) Serve(record);
}
static void GiveClick(HWND window, UINT press, LONG x, LONG y) {
  Give(window, press, MK_LBUTTON, MAKELPARAM(x, y));
  Give(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}

Part Find(const std::string& name) {
  for (HWND window : Windows()) {
    if (ClassOf(window) == name) return PartOf(window);
  }
  return name == "frmMain" ? nullptr : Find(Find("frmMain"), name);
}
Part Find(Part window, const std::string& name) {
  if (name.empty()) return PartOf(FirstOf(HandleOf(window), "Edit"));
  for (const auto& control : NativeWindow::Of(HandleOf(window))->Controls()) {
    if (control->Spec().name == name) return PartOf(control->Handle());
  }
  return nullptr;
}
std::vector<std::string> VisibleWindows() {
  std::vector<std::string> names;
  for (HWND window : Windows()) {
    if (IsWindowVisible(window)) names.push_back(ClassOf(window));
  }
  return names;
}
bool IsVisible(Part part) { return IsWindowVisible(HandleOf(part)); }
bool IsEnabled(Part part) { return IsWindowEnabled(HandleOf(part)); }
bool IsMinimized(Part window) { return IsIconic(HandleOf(window)); }
bool IsActive(Part window) { return GetActiveWindow() == HandleOf(window); }
void TakeKeys(Part window) { SetForegroundWindow(HandleOf(window)); }
void Minimize(Part window) { ShowWindow(GetAncestor(HandleOf(window), GA_ROOTOWNER), SW_MINIMIZE); }
void Close(Part window) {
  if (IsEnabled(window)) Give(HandleOf(window), WM_SYSCOMMAND, SC_CLOSE, 0);
}

void Click(Part control) {
  const HWND window = HandleOf(control);
  RECT place{};
  GetWindowRect(window, &place);
  POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
  if (WindowFromPoint(middle) != window) return;
  ScreenToClient(window, &middle);
  GiveClick(window, WM_LBUTTONDOWN, middle.x, middle.y);
}
void Press(Part part, Key key) {
  static const std::map<Key, WPARAM> keys = {{Key::Tab, VK_TAB},       {Key::Enter, VK_RETURN},
                                             {Key::Escape, VK_ESCAPE}, {Key::Space, VK_SPACE},
                                             {Key::F1, VK_F1},         {Key::F2, VK_F2}};
  HWND window = HandleOf(part);
  if (IsChild(window, GetFocus())) window = GetFocus();
  Give(window, WM_KEYDOWN, keys.at(key), 0);
  Give(window, WM_KEYUP, keys.at(key), 0);
}
void Type(Part field, const std::string& letters) {
  SendMessageW(HandleOf(field), EM_SETSEL, MAXLONG, MAXLONG);
  for (const wchar_t letter : ToWide(letters)) Give(HandleOf(field), WM_CHAR, letter, 0);
}
void Fill(Part field, const std::string& text) {
  SetFocus(HandleOf(field));
  SendMessageW(HandleOf(field), EM_SETSEL, 0, -1);
  SendMessageW(HandleOf(field), EM_REPLACESEL, TRUE,
               reinterpret_cast<LPARAM>(ToWide(text).c_str()));
}
std::string TextOf(Part field) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(HandleOf(field))), L'\0');
  GetWindowTextW(HandleOf(field), text.data(), static_cast<int>(text.size()) + 1);
  return ToBytes(text);
}
std::string FocusIn(Part window) {
  for (const auto& control : NativeWindow::Of(HandleOf(window))->Controls()) {
    if (control->Handle() == GetFocus()) return control->Spec().name;
  }
  return {};
}

/// The lines of the main window's menus that are to be had.
static std::vector<std::pair<std::wstring, MENUITEMINFOW>> Lines() {
  std::vector<std::pair<std::wstring, MENUITEMINFOW>> lines;
  HMENU bar = GetMenu(MainWindow());
  for (int menu = 0; menu < GetMenuItemCount(bar); ++menu) {
    HMENU entries = GetSubMenu(bar, menu);
    SendMessageW(MainWindow(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(entries), menu);
    for (int entry = 0; entry < GetMenuItemCount(entries); ++entry) {
      std::array<wchar_t, 64> text{};
      MENUITEMINFOW line{};
      line.cbSize = sizeof(line);
      line.fMask = MIIM_STRING | MIIM_FTYPE | MIIM_STATE | MIIM_ID;
      line.dwTypeData = text.data();
      line.cch = static_cast<UINT>(text.size());
      GetMenuItemInfoW(entries, static_cast<UINT>(entry), TRUE, &line);
      if ((line.fType & MFT_SEPARATOR) || (line.fState & MFS_GRAYED)) continue;
      const std::wstring whole = text.data();
      lines.emplace_back(whole.substr(0, whole.find(L'\t')), line);
    }
  }
  return lines;
}
void Pick(const std::string& entry) {
  for (const MenuEntry* known : mainForm->Menu()) {
    if (known->Spec().name != entry) continue;
    for (const auto& [text, line] : Lines()) {
      if (ToBytes(text) == known->Spec().caption) {
        return Give(MainWindow(), WM_COMMAND, line.wID, 0);
      }
    }
  }
}
std::string MenuNow() {
  std::string texts;
  for (const auto& [text, line] : Lines()) {
    texts += (line.fState & MFS_CHECKED ? "*" : "") + ToBytes(text) + '|';
  }
  return texts;
}

std::string Read(Part box) {
  const Part field = Find(box, "field");
  const Part picture = Find(box, "picture");
  const auto icon = picture ? SendMessageW(HandleOf(picture), STM_GETICON, 0, 0) : 0;
  std::string letter;
  for (const auto& [name, meaning] :
       {std::pair(IDI_ERROR, "x"), {IDI_WARNING, "!"}, {IDI_QUESTION, "?"}}) {
    if (icon == reinterpret_cast<LRESULT>(LoadIconW(nullptr, name))) letter = meaning;
  }
  return TextOf(box) + '|' + TextOf(Find(box, "text")) + '|' + (field ? TextOf(field) : "") + '|' +
         letter;
}

static std::string ItemText(HWND list, int item, int column) {
  static std::vector<wchar_t> text(4096);
  LVITEMW record{};
  record.iSubItem = column;
  record.pszText = text.data();
  record.cchTextMax = static_cast<int>(text.size());
  SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(item),
               reinterpret_cast<LPARAM>(&record));
  return ToBytes(text.data());
}
static HWND List(Part window) { return FirstOf(HandleOf(window), "SysListView32"); }
std::vector<std::string> Entries(Part dialog) {
  std::vector<std::string> texts;
  const auto count = SendMessageW(List(dialog), LVM_GETITEMCOUNT, 0, 0);
  for (int item = 0; item < count; ++item) texts.push_back(ItemText(List(dialog), item, 0));
  return texts;
}
void Tick(Part dialog, int entry) {
  LVITEMW state{};
  state.stateMask = state.state = LVIS_FOCUSED | LVIS_SELECTED;
  SendMessageW(List(dialog), LVM_SETITEMSTATE, static_cast<WPARAM>(entry),
               reinterpret_cast<LPARAM>(&state));
  Press(PartOf(List(dialog)), Key::Space);
}

static HWND Table() {
  if (!table) table = List(Find("frmMain"));
  return table;
}
static LRESULT Ask(UINT message, std::intptr_t wParam = 0, LPARAM lParam = 0) {
  return SendMessageW(Table(), message, static_cast<WPARAM>(wParam), lParam);
}
static POINT Middle(int row, int column) {
  RECT cell{};
  cell.left = LVIR_BOUNDS;
  Ask(LVM_GETITEMRECT, row - 1, reinterpret_cast<LPARAM>(&cell));
  LONG left = cell.left;
  for (int before = 0; before < column; ++before) left += ColumnWidth(before);
  return {left + ColumnWidth(column) / 2, (cell.top + cell.bottom) / 2};
}
int ShownRows() { return static_cast<int>(Ask(LVM_GETITEMCOUNT)) + 1; }
std::string ShownText(int row, int column) { return ItemText(Table(), row - 1, column); }
std::uint32_t LampColor(int row) {
  RECT room{};
  GetClientRect(Table(), &room);
  HDC screen = GetDC(nullptr);
  HDC paper = CreateCompatibleDC(screen);
  HBITMAP picture = CreateCompatibleBitmap(screen, room.right, room.bottom);
  HGDIOBJ before = SelectObject(paper, picture);
  Ask(WM_PRINTCLIENT, reinterpret_cast<std::intptr_t>(paper), PRF_CLIENT);
  const POINT middle = Middle(row, 0);
  const COLORREF color = GetPixel(paper, middle.x, middle.y);
  SelectObject(paper, before);
  DeleteObject(picture);
  DeleteDC(paper);
  ReleaseDC(nullptr, screen);
  return GetRValue(color) << 16U | GetGValue(color) << 8U | GetBValue(color);
}
std::string ChosenRow() {
  const auto item = static_cast<int>(Ask(LVM_GETNEXTITEM, -1, LVNI_SELECTED));
  return item < 0 ? "" : ItemText(Table(), item, 1);
}
void ClickCell(int row, int column) {
  const POINT cell = Middle(row, column);
  GiveClick(Table(), WM_LBUTTONDOWN, cell.x, cell.y);
}
void DoubleClickCell(int row, int column) {
  ClickCell(row, column);
  const POINT cell = Middle(row, column);
  GiveClick(Table(), WM_LBUTTONDBLCLK, cell.x, cell.y);
}
int ColumnWidth(int column) { return static_cast<int>(Ask(LVM_GETCOLUMNWIDTH, column)); }
void DragColumn(int column, int width) { Ask(LVM_SETCOLUMNWIDTH, column, width); }
void Repaint() { RedrawWindow(Table(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }
std::shared_ptr<void> HoldTableToItsRules() { return nullptr; }
bool PointerIsBusy() {
  RECT place{};
  GetWindowRect(Table(), &place);
  SetCursorPos(static_cast<int>(place.left) + 9, static_cast<int>(place.top) + 9);
  Ask(WM_SETCURSOR, reinterpret_cast<std::intptr_t>(Table()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  return GetCursor() == LoadCursorW(nullptr, IDC_APPSTARTING);
}

bool Until(const std::function<bool()>& condition) {
  const auto end = GetTickCount64() + 60000;
  bool quits = false;
  while (!condition() && GetTickCount64() < end) {
    MSG message{};
    MsgWaitForMultipleObjectsEx(0, nullptr, 10, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) continue;
    if (message.message == WM_QUIT) {
      quits = true;
    } else {
      Serve(message);
    }
  }
  // The end of the program is for its own loops.
  if (quits) PostQuitMessage(0);
  return condition();
}
void Settle() {
  bool done = false;
  // The view's timer is due ahead of this one, however slow the machine is.
  After(std::chrono::milliseconds(40), [&] { done = true; });
  Until([&] { return done; });
}
void After(std::chrono::milliseconds time, std::function<void()> call) {
  static std::map<UINT_PTR, std::function<void()>> calls;
  const auto run = [](HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    calls.extract(timer).mapped()();
  };
  calls[SetTimer(nullptr, 0, static_cast<UINT>(time.count()), run)] = std::move(call);
}
Part TopDialog() {
  for (HWND window : Windows()) {
    if (IsWindowVisible(window) && IsWindowEnabled(window) && GetWindow(window, GW_OWNER)) {
      return PartOf(window);
    }
  }
  return nullptr;
}

}  // namespace kestrava::test
