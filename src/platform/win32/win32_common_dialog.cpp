#include "platform/win32/win32_common_dialog.h"

#include <algorithm>
#include <vector>

#include "platform/win32/wide_text.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

/// "Description|*.x" as the system wants it: a NUL in place of the bar, and two at the end.
std::wstring NativeFilter(const std::string& filter) {
  std::wstring native = ToWide(filter) + L'\0';
  std::ranges::replace(native, L'|', L'\0');
  return native;
}

}  // namespace

void Win32CommonDialog::ShowOpen() { Ask(Purpose::Open); }

void Win32CommonDialog::ShowSave() { Ask(Purpose::Save); }

void Win32CommonDialog::Ask(Purpose purpose) {
  FileName.clear();
  if (windows_.HasEnded()) return;
  const std::wstring filter = NativeFilter(Filter);
  std::wstring folder = ToWide(InitDir);
  std::ranges::replace(folder, L'/', L'\\');
  std::vector<wchar_t> path(kLongestPath);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = windows_.Waits().Owner();
  dialog.lpstrFilter = filter.c_str();
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = static_cast<DWORD>(path.size());
  if (!folder.empty()) dialog.lpstrInitialDir = folder.c_str();
  // Whether there is such a file, and whether it may be replaced, is asked by whoever opens it.
  dialog.Flags = OFN_EXPLORER | OFN_ENABLESIZING | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  BOOL chosen = FALSE;
  {
    const SystemWait wait(windows_.Waits());
    chosen = purpose == Purpose::Open ? GetOpenFileNameW(&dialog) : GetSaveFileNameW(&dialog);
  }
  // Only now: another command may have shown a dialog meanwhile.
  FileName = chosen && !windows_.HasEnded() ? ToBytes(path.data()) : std::string();
}

}  // namespace kestrava
