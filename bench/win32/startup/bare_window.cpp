// The least that a program with a window and an empty table can be.

// clang-format off
#include <windows.h>
#include <commctrl.h>
// clang-format on

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES};
  InitCommonControlsEx(&classes);
  WNDCLASSW kind{};
  kind.lpfnWndProc = DefWindowProcW;
  kind.hInstance = instance;
  kind.lpszClassName = L"bare";
  RegisterClassW(&kind);
  // The size of the program's main window, with its menu bar.
  HWND window =
      CreateWindowW(L"bare", L"bare", WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX, CW_USEDEFAULT,
                    CW_USEDEFAULT, 762, 444, nullptr, nullptr, instance, nullptr);
  HWND table = CreateWindowW(WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0, 746, 385,
                             window, nullptr, instance, nullptr);
  wchar_t heading[] = L"heading";
  for (int column = 0; column < 6; ++column) {
    LVCOLUMNW shown{};
    shown.mask = LVCF_TEXT | LVCF_WIDTH;
    shown.cx = 100;
    shown.pszText = heading;
    SendMessageW(table, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&shown));
  }
  ShowWindow(window, SW_SHOWNORMAL);
  for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) DispatchMessageW(&message);
  return 0;
}
