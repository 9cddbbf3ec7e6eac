#pragma once

// The system's own headers, for the files of this folder alone. All that they define as macros and
// the program as names of its own is taken back. (The order is the system's: sockets come first.)
// clang-format off
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef UNICODE
#define UNICODE
#endif
#ifndef _WIN32_WINNT
#define _WIN32_WINNT 0x0A00  // Windows 10
#endif
#include <winsock2.h>
#include <windows.h>
#include <commctrl.h>
#include <commdlg.h>
#include <shellapi.h>
// clang-format on

// platform/notification_area.h
#undef NOTIFYICONDATA
#undef NIM_ADD
#undef NIM_MODIFY
#undef NIM_DELETE
#undef NIM_SETVERSION
#undef NIF_MESSAGE
#undef NIF_ICON
#undef NIF_TIP
#undef NIF_INFO
#undef NIS_SHAREDICON
#undef NOTIFYICON_VERSION
#undef NIIF_USER
#undef NIN_BALLOONUSERCLICK
#undef WM_RBUTTONUP

// platform/window_messages.h
#undef GWL_WNDPROC
