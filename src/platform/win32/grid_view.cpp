#include "platform/win32/grid_view.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/win32/grid_painter.h"
#include "platform/win32/wide_text.h"

namespace kestrava {

namespace {

constexpr std::int32_t kNothingFirst = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kNothingLast = -1;

constexpr const wchar_t* kName = L"Connections";

}  // namespace

GridView::GridView(MSFlexGrid& grid, HWND window, int id)
    : ListView(grid, window, id, 0, LVS_EX_GRIDLINES),
      columns_(Handle()),
      firstChanged_(kNothingFirst),
      lastChanged_(kNothingLast) {
  SetWindowTextW(Handle(), kName);
  observation_ = grid.ObserveCells(*this);
  ShapeChanged();
}

void GridView::Detach() {
  observation_ = {};
  ListView::Detach();
}

void GridView::SetScale(const TwipScale& scale, unsigned dotsPerInch, const UiFont& font) {
  ListView::SetScale(scale, dotsPerInch, font);
  scale_ = scale;
  columns_.ForgetWidths();
  ShowColumns();
}

std::optional<LRESULT> GridView::Serve(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_GETDLGCODE: {
      // Enter is the table's own here, and no button's.
      const auto* key = reinterpret_cast<const MSG*>(lParam);
      if (key && key->message == WM_KEYDOWN && key->wParam == VK_RETURN) return DLGC_WANTMESSAGE;
      break;
    }
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
      // The system's own answer would wait for the button's release and nothing else.
      TakePress(PositionOf(lParam));
      return 0;
    case WM_LBUTTONDBLCLK:
      TakePress(PositionOf(lParam));
      if (HitTest(PositionOf(lParam))) RaiseDoubleClick();
      return 0;
    case WM_KEYDOWN:
      return TakeKey(wParam) ? 0 : MoveByKey(wParam, lParam);
    case WM_CHAR:
      // There is nothing that a letter could mean.
      return 0;
    case WM_TIMER:
      if (wParam != kFrameTimer) break;
      CatchUp();
      return 0;
    default:
      break;
  }
  return std::nullopt;
}

void GridView::Describe(LVITEMW& item) const { Put(CellText(item.iItem + 1, item.iSubItem), item); }

LRESULT GridView::TakeOther(NMHDR& note) {
  switch (note.code) {
    case NM_CUSTOMDRAW:
      return Draw(reinterpret_cast<NMLVCUSTOMDRAW&>(note));
    case LVN_COLUMNCLICK:
      ChooseHeading(0, reinterpret_cast<const NMLISTVIEW&>(note).iSubItem);
      break;
    default:
      break;
  }
  return 0;
}

void GridView::CellChanged(std::int32_t row, std::int32_t) { NoteRows(row, row); }

void GridView::ShapeChanged() {
  shapeChanged_ = true;
  NoteRows(0, std::numeric_limits<std::int32_t>::max());
}

void GridView::ColWidthGiven(std::int32_t col) { columns_.ForgetWidth(col); }

void GridView::NoteRows(std::int32_t first, std::int32_t last) {
  firstChanged_ = std::min(firstChanged_, first);
  lastChanged_ = std::max(lastChanged_, last);
  if (frameIsDue_) return;
  frameIsDue_ = SetTimer(Handle(), kFrameTimer, kViewFrameMilliseconds, nullptr) != 0;
}

void GridView::CatchUp() {
  KillTimer(Handle(), kFrameTimer);
  frameIsDue_ = false;
  if (!As<MSFlexGrid>()) return;
  const bool headingChanged = firstChanged_ == 0;
  if (std::exchange(shapeChanged_, false) || headingChanged) ShowColumns();
  const int first = std::max(std::exchange(firstChanged_, kNothingFirst) - 1, 0);
  const int last = std::min(std::exchange(lastChanged_, kNothingLast), rows_) - 1;
  CatchUpRows();
  RedrawItems(first, last);
}

void GridView::RedrawItems(int first, int last) {
  // Wine asks its server for each of them, out of sight or not.
  const int top = static_cast<int>(Send(LVM_GETTOPINDEX));
  const int bottom = top + static_cast<int>(Send(LVM_GETCOUNTPERPAGE));
  first = std::max(first, top);
  last = std::min(last, bottom);
  if (first <= last) Send(LVM_REDRAWITEMS, static_cast<WPARAM>(first), last);
}

void GridView::CatchUpRows() {
  const std::int32_t rows = As<MSFlexGrid>()->Rows();
  const std::int32_t before = std::exchange(rows_, rows);
  // As many as before may be others.
  if (rows == before) return FollowUserCell();
  SetCount(rows - 1);
  FollowUserCell();
  InvalidateRect(Handle(), nullptr, FALSE);
  if (rows == before + 1) Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(rows - 2), FALSE);
}

void GridView::ShowColumns() {
  if (const auto* grid = As<MSFlexGrid>()) columns_.Show(*grid, scale_, Font());
}

bool GridView::HasRoom(const TwipScale& scale) const {
  const auto* grid = As<MSFlexGrid>();
  return !grid || GridColumns::HaveRoom(*grid, scale, Font());
}

void GridView::FollowUserCell() {
  if (!hasUserCell_) return;
  const auto cell = As<MSFlexGrid>()->UserCell();
  if (!cell) {
    hasUserCell_ = false;
    return Deselect();
  }
  // The rows on the screen stay where they are.
  if (cell->row != FocusedItem() + 1) FocusItem(cell->row - 1);
}

std::wstring GridView::CellText(std::int32_t row, std::int32_t col) const {
  const auto* grid = As<MSFlexGrid>();
  if (!grid || row >= grid->Rows() || col >= grid->Cols()) return {};
  return ToShownLine(col == 0 ? LampMeaning(grid->BackColorAt(row, 0))
                              : grid->TextViewAt(row, col));
}

LRESULT GridView::Draw(NMLVCUSTOMDRAW& drawing) {
  const auto* grid = As<MSFlexGrid>();
  if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) {
    drawn_.widths = columns_.Widths();
    drawn_.selected = SelectedItem();
    return CDRF_NOTIFYITEMDRAW;
  }
  if (drawing.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || !grid) return CDRF_DODEFAULT;
  const int item = static_cast<int>(drawing.nmcd.dwItemSpec);
  const std::int32_t row = item + 1;
  RECT place{};
  place.left = LVIR_BOUNDS;
  SendRecord(LVM_GETITEMRECT, static_cast<WPARAM>(item), place);
  int col = 0;
  for (const int width : drawn_.widths) {
    place.right = place.left + width;
    if (col == 0) {
      PaintLamp(drawing.nmcd.hdc, place, row < grid->Rows() ? grid->BackColorAt(row, 0) : kNoColor);
    } else {
      const bool current = item == drawn_.selected && col == column_;
      PaintCell(drawing.nmcd.hdc, place, CellText(row, col),
                !current                 ? CellState::Plain
                : GetFocus() == Handle() ? CellState::InUse
                                         : CellState::Selected);
    }
    place.left = place.right;
    ++col;
  }
  return CDRF_SKIPDEFAULT;
}

bool GridView::TakeKey(WPARAM key) {
  CatchUp();
  switch (key) {
    case VK_RETURN:
      RaiseDoubleClick();
      return true;
    case VK_LEFT:
      MoveColumn(column_ - 1);
      return true;
    case VK_RIGHT:
      MoveColumn(column_ + 1);
      return true;
    default:
      return false;
  }
}

LRESULT GridView::MoveByKey(WPARAM key, LPARAM lParam) {
  const int before = FocusedItem();
  const LRESULT answer = DefSubclassProc(Handle(), WM_KEYDOWN, key, lParam);
  const int item = FocusedItem();
  if (item >= 0 && item != before) Choose(item);
  return answer;
}

void GridView::TakePress(POINT position) {
  SetFocus(Handle());
  CatchUp();
  const auto hit = HitTest(position);
  if (!hit) return;
  if (hit->iSubItem == 0) {
    FocusItem(hit->iItem);
    return ChooseHeading(hit->iItem + 1, 0);
  }
  column_ = hit->iSubItem;
  FocusItem(hit->iItem);
  // An item that had the focus already tells nothing of it.
  Choose(hit->iItem);
  Send(LVM_REDRAWITEMS, static_cast<WPARAM>(hit->iItem), hit->iItem);
}

void GridView::MoveColumn(int column) {
  const int item = FocusedItem();
  const int last = columns_.Count() - 1;
  if (item < 0 || last < 1) return;
  column_ = std::clamp(column, 1, last);
  FocusItem(item);
  Choose(item);
  Send(LVM_REDRAWITEMS, static_cast<WPARAM>(item), item);
  ShowCell(item);
}

/// Scrolls sideways so far that the user's cell is in sight.
void GridView::ShowCell(int item) {
  RECT cell{};
  cell.top = column_;
  cell.left = LVIR_BOUNDS;
  SendRecord(LVM_GETSUBITEMRECT, static_cast<WPARAM>(item), cell);
  RECT room{};
  GetClientRect(Handle(), &room);
  const LONG outRight = std::max(cell.right - room.right, 0L);
  const LONG scroll = cell.left - outRight < 0 ? cell.left : outRight;
  if (scroll != 0) Send(LVM_SCROLL, static_cast<WPARAM>(scroll), 0);
}

bool GridView::Choose(int item) {
  auto* grid = As<MSFlexGrid>();
  if (!grid || !grid->ChooseCell(item + 1, column_)) return false;
  hasUserCell_ = true;
  return true;
}

void GridView::ChooseHeading(std::int32_t row, std::int32_t col) {
  Deselect();
  hasUserCell_ = false;
  if (auto* grid = As<MSFlexGrid>()) grid->ChooseCell(row, col);
}

void GridView::RaiseDoubleClick() {
  const int item = FocusedItem();
  const bool selected =
      item >= 0 && Send(LVM_GETITEMSTATE, static_cast<WPARAM>(item), LVIS_SELECTED) != 0;
  if (selected && Choose(item)) As<MSFlexGrid>()->DblClick.Raise();
}

}  // namespace kestrava
