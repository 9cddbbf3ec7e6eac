#pragma once

#include "platform/form.h"
#include "platform/win32/ui_font.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

/// Makes the window of `form`, unseen and without its parts. Its window class has the form's name.
/// @param owner the window that it belongs to, or nullptr.
HWND MakeWindow(const FormSpec& form, HWND owner, WNDPROC procedure);

/// Gives the window's inner area that size; its outer one follows.
void SizeInner(HWND window, PixelSize size);

/// Puts the window above the middle of the one that it belongs to, or of the screen where that one
/// isn't to be seen.
void PutOverOwner(HWND window);

/// Puts the middle of the window back to where it was when the window had that place.
void KeepCentre(HWND window, const RECT& before);

/// Shows that shape of the mouse's pointer at once where it stands above that window.
void ShowPointer(HWND window, MousePointer pointer);

/// The whole screen that the window is on.
RECT ScreenOf(HWND window);

}  // namespace kestrava
