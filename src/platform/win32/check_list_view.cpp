#include "platform/win32/check_list_view.h"

#include <array>
#include <utility>

#include "platform/win32/wide_text.h"

namespace kestrava {

namespace {

/// The system's pictures of a box, from 1.
constexpr UINT kEmptyBox = 1;
constexpr UINT kTickedBox = 2;

}  // namespace

CheckListView::CheckListView(CheckList& list, HWND window, int id)
    : ListView(list, window, id, LVS_NOCOLUMNHEADER, 0) {
  // What nothing names is, for screen readers, what its window is about.
  std::array<wchar_t, 128> title{};
  GetWindowTextW(window, title.data(), static_cast<int>(title.size()));
  SetText(title.data());
  LVCOLUMNW column{};
  SendRecord(LVM_INSERTCOLUMNW, 0, column);
  // The boxes are asked for like the texts.
  Send(LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK);
}

void CheckListView::SetScale(const TwipScale& scale, unsigned dotsPerInch, const UiFont& font) {
  ListView::SetScale(scale, dotsPerInch, font);
  if (std::exchange(dotsPerInch_, dotsPerInch) == dotsPerInch) return;
  // Boxes of the size for this screen.
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_CHECKBOXES, 0);
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_CHECKBOXES, LVS_EX_CHECKBOXES);
}

std::optional<LRESULT> CheckListView::Serve(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
      // The system's own answer would wait for the button's release and nothing else.
      SetFocus(Handle());
      const auto hit = HitTest(PositionOf(lParam));
      if (!hit) return 0;
      FocusItem(hit->iItem);
      if (hit->flags & LVHT_ONITEMSTATEICON) Toggle(hit->iItem);
      return 0;
    }
    case WM_KEYDOWN:
      if (wParam != VK_SPACE) break;
      Toggle(FocusedItem());
      return 0;
    case WM_CHAR:
      if (wParam == L' ') return 0;
      break;
    case WM_SIZE:
      FillWidth();
      break;
    default:
      break;
  }
  return std::nullopt;
}

void CheckListView::Describe(LVITEMW& item) const {
  const auto* list = As<CheckList>();
  if (!list || item.iItem >= list->ListCount()) return;
  Put(ToShownLine(list->List(item.iItem)), item);
  if (!(item.mask & LVIF_STATE)) return;
  item.stateMask = LVIS_STATEIMAGEMASK;
  item.state = INDEXTOSTATEIMAGEMASK(list->Selected(item.iItem) ? kTickedBox : kEmptyBox);
}

void CheckListView::Show() {
  const int count = As<CheckList>()->ListCount();
  if (const int before = std::exchange(count_, count); before != count) {
    SetCount(count);
    if (before == 0) FocusItem(0);
    FillWidth();
  }
  InvalidateRect(Handle(), nullptr, FALSE);
}

void CheckListView::Toggle(int entry) {
  auto* list = As<CheckList>();
  if (list && entry >= 0 && entry < list->ListCount()) {
    list->SetSelected(entry, !list->Selected(entry));
    NotifyWinEvent(EVENT_OBJECT_STATECHANGE, Handle(), OBJID_CLIENT, entry + 1);
  }
}

void CheckListView::FillWidth() {
  RECT room{};
  GetClientRect(Handle(), &room);
  if (Send(LVM_GETCOLUMNWIDTH) != room.right) Send(LVM_SETCOLUMNWIDTH, 0, room.right);
}

}  // namespace kestrava
