#pragma once

#include "desktop/driver.h"
#include "platform/win32/native_window.h"
#include "platform/win32/wide_text.h"

// The parts as what they are here.
namespace kestrava::test {

inline HWND HandleOf(Part part) { return reinterpret_cast<HWND>(part); }
inline Part PartOf(HWND window) { return reinterpret_cast<Part>(window); }

/// Serves a message as the loop of the program, or of the system's own dialogs, does.
void Give(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// Clicks there in the window. `press` is how the system tells of the button.
void GiveClick(HWND window, UINT press, POINT place);
/// The list in a window.
HWND ListOf(Part window);
/// The main window is another one from now on.
void UseMainWindow(const frmMain& main);

}  // namespace kestrava::test
