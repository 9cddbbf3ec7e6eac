#include <array>

#include "desktop/win32/handles.h"

namespace kestrava::test {

static const frmMain* mainForm = nullptr;
static HWND table = nullptr;
void UseMainWindow(const frmMain& main) {
  mainForm = &main;
  table = nullptr;
}
static HWND MainWindow() { return HandleOf(Find("frmMain")); }

/// The commands of the menu's lines that are to be had, by what reads there.
static std::vector<std::pair<std::string, WPARAM>> Lines() {
  std::vector<std::pair<std::string, WPARAM>> lines;
  HMENU bar = GetMenu(MainWindow());
  for (int menu = 0; menu < GetMenuItemCount(bar); ++menu) {
    HMENU entries = GetSubMenu(bar, menu);
    SendMessageW(MainWindow(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(entries), menu);
    for (int entry = 0; entry < GetMenuItemCount(entries); ++entry) {
      const auto place = static_cast<UINT>(entry);
      const UINT state = GetMenuState(entries, place, MF_BYPOSITION);
      if (state & (MF_SEPARATOR | MF_GRAYED)) continue;
      std::array<wchar_t, 64> text{};
      GetMenuStringW(entries, place, text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
      const std::string line = (state & MF_CHECKED ? "*" : "") + ToBytes(text.data());
      lines.emplace_back(line.substr(0, line.find('\t')), GetMenuItemID(entries, entry));
    }
  }
  return lines;
}
void Pick(const std::string& entry) {
  for (const MenuEntry* known : mainForm->Menu()) {
    const std::string caption = std::string(known->Checked() ? "*" : "") + known->Spec().caption;
    for (const auto& [line, command] : Lines()) {
      if (known->Spec().name != entry || line != caption) continue;
      return Give(MainWindow(), WM_COMMAND, command, 0);
    }
  }
}
std::string MenuNow() {
  std::string texts;
  for (const auto& [line, command] : Lines()) texts += line + '|';
  return texts;
}

static HWND Table() {
  if (!table) table = ListOf(Find("frmMain"));
  return table;
}
template <typename Value>
static LRESULT Ask(HWND list, UINT message, int item, Value value) {
  return SendMessageW(list, message, static_cast<WPARAM>(item), (LPARAM)value);
}
static std::string ItemText(HWND list, int item, int column) {
  static std::array<wchar_t, 4096> text{};
  LVITEMW record{};
  record.iSubItem = column;
  record.pszText = text.data();
  record.cchTextMax = static_cast<int>(text.size());
  Ask(list, LVM_GETITEMTEXTW, item, &record);
  return ToBytes(text.data());
}
std::vector<std::string> Entries(Part dialog) {
  std::vector<std::string> texts;
  const auto count = static_cast<int>(Ask(ListOf(dialog), LVM_GETITEMCOUNT, 0, 0));
  for (int item = 0; item < count; ++item) {
    // The system's second picture of a box has a tick.
    const auto box = Ask(ListOf(dialog), LVM_GETITEMSTATE, item, LVIS_STATEIMAGEMASK) >> 12;
    texts.push_back((box == 2 ? "*" : "") + ItemText(ListOf(dialog), item, 0));
  }
  return texts;
}
void Tick(Part dialog, int entry) {
  LVITEMW state{};
  state.stateMask = state.state = LVIS_FOCUSED | LVIS_SELECTED;
  Ask(ListOf(dialog), LVM_SETITEMSTATE, entry, &state);
  if (entry % 2 == 0) return Press(PartOf(ListOf(dialog)), Key::Space);
  RECT place{};
  Ask(ListOf(dialog), LVM_GETITEMRECT, entry, &place);
  GiveClick(ListOf(dialog), WM_LBUTTONDOWN, {place.left + 8, place.top + 8});
}

int ShownRows() { return static_cast<int>(Ask(Table(), LVM_GETITEMCOUNT, 0, 0)) + 1; }
std::string ShownText(int row, int column) { return ItemText(Table(), row - 1, column); }
int ColumnWidth(int column) {
  return static_cast<int>(Ask(Table(), LVM_GETCOLUMNWIDTH, column, 0));
}
void DragColumn(int column, int width) { Ask(Table(), LVM_SETCOLUMNWIDTH, column, width); }
void Repaint() { RedrawWindow(Table(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }
std::shared_ptr<void> HoldTableToItsRules() { return nullptr; }
std::string ChosenRow() {
  const auto item = static_cast<int>(Ask(Table(), LVM_GETNEXTITEM, -1, LVNI_SELECTED));
  return item < 0 ? "none" : ShownText(item + 1, 1);
}
static RECT Place(int row, int column) {
  RECT cell{};
  cell.top = column;
  Ask(Table(), LVM_GETSUBITEMRECT, row - 1, &cell);
  // The first one is taken for the whole row.
  if (column == 0) cell.right = cell.left + ColumnWidth(0);
  return cell;
}
static POINT Middle(int row, int column) {
  const RECT cell = Place(row, column);
  return {(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2};
}
void ClickCell(int row, int column) { GiveClick(Table(), WM_LBUTTONDOWN, Middle(row, column)); }
void DoubleClickCell(int row, int column) {
  ClickCell(row, column);
  GiveClick(Table(), WM_LBUTTONDBLCLK, Middle(row, column));
}
std::set<std::uint32_t> ColorsAt(int row, int column) {
  RECT room{};
  GetClientRect(Table(), &room);
  HDC screen = GetDC(Table());
  HDC paper = CreateCompatibleDC(screen);
  HBITMAP picture = CreateCompatibleBitmap(screen, room.right, room.bottom);
  HGDIOBJ before = SelectObject(paper, picture);
  SendMessageW(Table(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(paper), PRF_CLIENT);
  std::set<std::uint32_t> colors;
  const RECT cell = Place(row, column);
  for (LONG y = cell.top + 2; y < cell.bottom - 2; ++y) {
    for (LONG x = cell.left + 2; x < cell.right - 2; ++x) {
      const COLORREF color = GetPixel(paper, x, y);
      colors.insert(RGB(GetBValue(color), GetGValue(color), GetRValue(color)));
    }
  }
  DeleteObject(SelectObject(paper, before));
  DeleteDC(paper);
  ReleaseDC(Table(), screen);
  return colors;
}
bool PointerIsBusy() {
  POINT place{};
  ClientToScreen(Table(), &place);
  SetCursorPos(static_cast<int>(place.x), static_cast<int>(place.y));
  SendMessageW(Table(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Table()),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  return GetCursor() == LoadCursorW(nullptr, IDC_APPSTARTING);
}

}  // namespace kestrava::test
