#include "platform/win32/list_view.h"

#include <algorithm>

namespace kestrava {

namespace {

constexpr UINT_PTR kSubclass = 1;

}  // namespace

ListView::ListView(Control& control, HWND window, int id, DWORD style, DWORD extendedStyle)
    : NativeControl(
          control, window, id,
          {WC_LISTVIEWW,
           WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | style,
           WS_EX_CLIENTEDGE}) {
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
       static_cast<LPARAM>(LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP | extendedStyle));
  SetWindowSubclass(Handle(), Procedure, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

ListView::~ListView() { RemoveWindowSubclass(Handle(), Procedure, kSubclass); }

LRESULT ListView::TakeNotification(NMHDR& note) {
  if (note.code != LVN_GETDISPINFOW) return TakeOther(note);
  Describe(reinterpret_cast<NMLVDISPINFOW&>(note).item);
  return 0;
}

void ListView::SetCount(int items) {
  Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(items), LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
}

int ListView::FocusedItem() const {
  return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
}

int ListView::SelectedItem() const {
  return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

void ListView::FocusItem(int item) {
  LVITEMW state{};
  state.stateMask = LVIS_FOCUSED | LVIS_SELECTED;
  state.state = state.stateMask;
  SendRecord(LVM_SETITEMSTATE, static_cast<WPARAM>(item), state);
}

void ListView::Deselect() {
  LVITEMW state{};
  state.stateMask = LVIS_SELECTED;
  SendRecord(LVM_SETITEMSTATE, static_cast<WPARAM>(-1), state);
}

POINT ListView::PositionOf(LPARAM lParam) {
  // They are signed: a captured mouse may be left of the window.
  return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

std::optional<LVHITTESTINFO> ListView::HitTest(POINT position) const {
  LVHITTESTINFO hit{};
  hit.pt = position;
  SendRecord(LVM_SUBITEMHITTEST, 0, hit);
  if (hit.iItem < 0) return std::nullopt;
  return hit;
}

void ListView::Put(const std::wstring& text, LVITEMW& item) {
  if (!(item.mask & LVIF_TEXT) || item.cchTextMax < 1) return;
  const auto room = static_cast<std::size_t>(item.cchTextMax - 1);
  item.pszText[text.copy(item.pszText, std::min(room, text.size()))] = L'\0';
}

LRESULT CALLBACK ListView::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam,
                                     UINT_PTR, DWORD_PTR view) {
  const auto answer = reinterpret_cast<ListView*>(view)->Serve(message, wParam, lParam);
  return answer ? *answer : DefSubclassProc(handle, message, wParam, lParam);
}

}  // namespace kestrava
