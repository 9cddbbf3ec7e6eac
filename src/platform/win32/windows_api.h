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
#include <iphlpapi.h>
#include <icmpapi.h>
#include <shellapi.h>
#include <shlwapi.h>
// clang-format on

/// Characters of the longest path, with its NUL.
inline constexpr unsigned kLongestPath = 32768;

// platform/file_system.h
#undef DeleteFile

// platform/registry.h
#undef HKEY_CLASSES_ROOT
#undef KEY_READ
#undef REG_SZ
#undef REG_DWORD
#undef ERROR_SUCCESS
#undef ERROR_FILE_NOT_FOUND
#undef ERROR_INVALID_HANDLE
#undef ERROR_MORE_DATA
#undef ERROR_NO_MORE_ITEMS

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
