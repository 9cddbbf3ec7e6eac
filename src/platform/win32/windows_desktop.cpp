#include "platform/win32/windows_desktop.h"

#include "platform/win32/message_pump.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/windows_api.h"

namespace kestrava {

namespace {

std::string ProgramFolder() {
  std::wstring path(kLongestPath, L'\0');
  const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  path.resize(length);
  return ToBytes(path.substr(0, path.find_last_of(L'\\')));
}

}  // namespace

WindowsDesktop::WindowsDesktop() {
  const INITCOMMONCONTROLSEX kinds{sizeof(kinds),
                                   ICC_LISTVIEW_CLASSES | ICC_LINK_CLASS | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&kinds);
}

Platform WindowsDesktop::Services() {
  return {.windows = windows_,
          .eventLoop = eventLoop_,
          .messageBoxes = messageBoxes_,
          .promptBoxes = promptBoxes_,
          .commonDialog = commonDialog_,
          .clock = clock_,
          .icmp = icmp_,
          .sockets = sockets_,
          .rdp = rdp_,
          .settings = settings_,
          .files = files_,
          .notificationArea = notificationArea_,
          .versions = versions_,
          .messages = messages_,
          .registry = registry_,
          .processes = processes_,
          .programFolder = ProgramFolder()};
}

void WindowsDesktop::Run() {
  while (!eventLoop_.HasEnded() && ServeNextMessage(eventLoop_)) continue;
}

}  // namespace kestrava
