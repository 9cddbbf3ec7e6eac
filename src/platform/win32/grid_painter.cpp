#include "platform/win32/grid_painter.h"

#include <algorithm>

namespace kestrava {

namespace {

constexpr int kTextMargin = 6;

/// A colour half way between two.
COLORREF Between(COLORREF one, COLORREF other) {
  return RGB((GetRValue(one) + GetRValue(other)) / 2, (GetGValue(one) + GetGValue(other)) / 2,
             (GetBValue(one) + GetBValue(other)) / 2);
}

void Fill(HDC screen, const RECT& place, COLORREF color) {
  SetDCBrushColor(screen, color);
  FillRect(screen, &place, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

/// Whether the first letter with a direction is written from right to left.
bool RunsRightToLeft(const std::wstring& text) {
  const auto found = std::ranges::find_if(text, [](wchar_t letter) {
    WORD direction = 0;
    GetStringTypeW(CT_CTYPE2, &letter, 1, &direction);
    return direction == C2_LEFTTORIGHT || direction == C2_RIGHTTOLEFT;
  });
  if (found == text.end()) return false;
  WORD direction = 0;
  GetStringTypeW(CT_CTYPE2, &*found, 1, &direction);
  return direction == C2_RIGHTTOLEFT;
}

}  // namespace

void PaintLamp(HDC screen, const RECT& place, Color color) {
  Fill(screen, place, GetSysColor(COLOR_BTNFACE));
  if (color == kNoColor) return;
  // A border half way to the text's colour keeps a white lamp apart from a white table and a lit
  // one apart from a dark one.
  RECT lamp{place.left + 1, place.top + 1, place.right - 2, place.bottom - 2};
  Fill(screen, lamp, Between(color, GetSysColor(COLOR_BTNTEXT)));
  InflateRect(&lamp, -1, -1);
  Fill(screen, lamp, color);
}

void PaintCell(HDC screen, const RECT& place, const std::wstring& text, CellState state) {
  int background = COLOR_WINDOW;
  int foreground = COLOR_WINDOWTEXT;
  if (state == CellState::InUse) {
    background = COLOR_HIGHLIGHT;
    foreground = COLOR_HIGHLIGHTTEXT;
  } else if (state == CellState::Selected) {
    background = COLOR_BTNFACE;
    foreground = COLOR_BTNTEXT;
  }
  Fill(screen, place, GetSysColor(background));
  SetTextColor(screen, GetSysColor(foreground));
  SetBkMode(screen, TRANSPARENT);
  RECT room{place.left + kTextMargin, place.top, place.right - kTextMargin, place.bottom};
  UINT form = DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;
  if (RunsRightToLeft(text)) form |= DT_RTLREADING;
  DrawTextW(screen, text.c_str(), -1, &room, form);
  if (state == CellState::InUse) DrawFocusRect(screen, &place);
}

}  // namespace kestrava
