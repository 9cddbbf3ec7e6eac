#pragma once

#include "platform/notification_area.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

/// By which the taskbar tells what happened at the icon.
inline constexpr UINT kNativeCallback = WM_APP;

/// The record as this system lays it out, field by field: its handles are longer, and so the same
/// length would name another version of it. Only the fields within `cbSize` count; in the shortest
/// form there is no balloon. `window` gets the icon's messages.
NOTIFYICONDATAW NativeIconRecord(const NOTIFYICONDATA& record, HWND window);

/// Takes over into `icon` what `change` changes of it for good: all but a balloon.
void NoteChange(const NOTIFYICONDATA& change, NOTIFYICONDATA& icon);

}  // namespace kestrava
