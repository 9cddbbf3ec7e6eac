#pragma once

#include <string>

#include "platform/color.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

/// How the user stands to a cell.
enum class CellState {
  Plain,
  Selected,  ///< the user's cell while the keys go elsewhere
  InUse,     ///< the user's cell, to which the keys go
};

/// Each fills `place` in the user's own colours.
void PaintLamp(HDC screen, const RECT& place, Color color);
void PaintCell(HDC screen, const RECT& place, const std::wstring& text, CellState state);

}  // namespace kestrava
