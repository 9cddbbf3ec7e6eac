#pragma once

#include "platform/linux/descriptor_waits.h"
#include "platform/linux/event_source.h"
#include "platform/linux/linux_clock.h"
#include "platform/linux/linux_file_worker.h"
#include "platform/linux/linux_icmp.h"
#include "platform/linux/linux_processes.h"
#include "platform/linux/linux_registry.h"
#include "platform/linux/linux_remote_desktop.h"
#include "platform/linux/linux_sockets.h"
#include "platform/linux/linux_version_info.h"
#include "platform/linux_desktop/tray/linux_notification_area.h"
#include "platform/platform.h"
#include "platform/qt/modal_waits.h"
#include "platform/qt/qt_common_dialog.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_message_boxes.h"
#include "platform/qt/qt_prompt_boxes.h"
#include "platform/qt/qt_settings_store.h"
#include "platform/qt/qt_window_messages.h"
#include "platform/qt/qt_window_system.h"

namespace kestrava {

/// The Linux desktop over Qt: everything of the outside that the program is given. The application
/// object must be there first.
class LinuxDesktop {
 public:
  LinuxDesktop();

  /// They last as long as the desktop.
  Platform Services();

  /// Serves `source` in the event loop from now on. It must outlive the desktop.
  void Watch(EventSource& source);

  LinuxProcesses& Programs() { return processes_; }
  QtEventLoop& EventLoop() { return eventLoop_; }
  QtWindowSystem& Windows() { return windows_; }

 private:
  LinuxClock clock_;
  DescriptorWaits descriptorWaits_;
  LinuxIcmp icmp_{descriptorWaits_};
  LinuxSockets sockets_;
  LinuxRemoteDesktop rdp_;
  LinuxFileWorker files_{descriptorWaits_};
  LinuxRegistry registry_;
  LinuxProcesses processes_;
  LinuxVersionInfo versions_;
  QtSettingsStore settings_;
  QtEventLoop eventLoop_;
  ModalWaits modalWaits_{eventLoop_};
  QtMessageBoxes messageBoxes_{modalWaits_};
  QtPromptBoxes promptBoxes_{modalWaits_};
  QtCommonDialog commonDialog_{modalWaits_};
  QtWindowSystem windows_{eventLoop_, modalWaits_};
  QtWindowMessages messages_{windows_, modalWaits_, eventLoop_};
  LinuxNotificationArea notificationArea_{messages_};
};

}  // namespace kestrava
