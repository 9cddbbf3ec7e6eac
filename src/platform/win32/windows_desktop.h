#pragma once

#include "platform/platform.h"
#include "platform/win32/handle_waits.h"
#include "platform/win32/tray/win32_notification_area.h"
#include "platform/win32/tray/win32_window_messages.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_common_dialog.h"
#include "platform/win32/win32_event_loop.h"
#include "platform/win32/win32_file_worker.h"
#include "platform/win32/win32_icmp.h"
#include "platform/win32/win32_message_boxes.h"
#include "platform/win32/win32_processes.h"
#include "platform/win32/win32_prompt_boxes.h"
#include "platform/win32/win32_registry.h"
#include "platform/win32/win32_remote_desktop.h"
#include "platform/win32/win32_settings_store.h"
#include "platform/win32/win32_sockets.h"
#include "platform/win32/win32_version_info.h"
#include "platform/win32/win32_window_system.h"

namespace kestrava {

/// The Windows desktop: everything of the outside that the program is given.
class WindowsDesktop {
 public:
  WindowsDesktop();

  /// They last as long as the desktop.
  Platform Services();

  Win32Processes& Programs() { return processes_; }
  Win32WindowSystem& Windows() { return windows_; }

  /// Serves all that comes until the main window has gone.
  void Run();

 private:
  Win32EventLoop eventLoop_;
  HandleWaits waits_{eventLoop_};
  Win32Clock clock_;
  Win32Icmp icmp_{waits_};
  Win32Sockets sockets_;
  Win32RemoteDesktop rdp_{eventLoop_};
  Win32FileWorker files_{waits_};
  Win32Registry registry_;
  Win32Processes processes_;
  Win32VersionInfo versions_;
  Win32SettingsStore settings_;
  Win32WindowSystem windows_{eventLoop_};
  Win32MessageBoxes messageBoxes_{windows_};
  Win32PromptBoxes promptBoxes_{windows_};
  Win32CommonDialog commonDialog_{windows_};
  Win32WindowMessages messages_{windows_};
  Win32NotificationArea notificationArea_{messages_};
};

}  // namespace kestrava
