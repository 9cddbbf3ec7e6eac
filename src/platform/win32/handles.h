#pragma once

// The system's handles, told by name alone, so that a header needn't bring in all of the system's.
struct HDC__;
struct HFONT__;
struct HICON__;
struct HMENU__;
struct HWND__;
