#pragma once

#include <string>
#include <vector>

#include "attempt_meter.h"
#include "monitor/frmMain.h"
#include "platform/linux/linux_clock.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/linux_icmp.h"
#include "platform/linux/linux_processes.h"
#include "platform/linux/linux_registry.h"
#include "platform/linux/linux_remote_desktop.h"
#include "platform/linux/linux_sockets.h"
#include "platform/linux/linux_version_info.h"
#include "platform/qt/qt_common_dialog.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_message_boxes.h"
#include "platform/qt/qt_prompt_boxes.h"
#include "platform/qt/qt_settings_store.h"
#include "platform/qt/qt_window_system.h"
#include "platform/qt/tray/qt_notification_area.h"
#include "platform/qt/tray/qt_window_messages.h"

namespace kestrava {

/// The program as users run it, with its window on the screen. Needs a `QApplication`.
class RealProgram {
 public:
  RealProgram();
  ~RealProgram() { windows_.Unload(window); }
  RealProgram(const RealProgram&) = delete;
  RealProgram& operator=(const RealProgram&) = delete;

  /// Puts a list of machines into the empty table, and returns when the window shows it.
  void Fill(const std::vector<std::string>& addresses);

  /// Presses "Check Now !" and returns when the pass is over.
  /// @return the seconds that it took.
  /// @throws std::runtime_error unless every row then shows `status`.
  double Check(const std::string& status);

  /// Has the view of the table show its latest state at once.
  void CatchUp();

  const AttemptMeter& Attempts() const { return attempts_; }
  EventLoop& Loop() { return eventLoop_; }
  FileSystemObject& FileSystem() { return fileSystem_; }
  MessageBoxes& Boxes() { return messageBoxes_; }

 private:
  void Settle();

  LinuxClock clock_;
  LinuxIcmp icmp_;
  LinuxSockets sockets_;
  LinuxRemoteDesktop remoteDesktop_;
  AttemptMeter attempts_{remoteDesktop_};
  LinuxFileSystem fileSystem_;
  LinuxRegistry registry_;
  LinuxProcesses processes_;
  LinuxVersionInfo versions_;
  QtSettingsStore settings_;
  QtEventLoop eventLoop_;
  QtMessageBoxes messageBoxes_{eventLoop_};
  QtPromptBoxes promptBoxes_{eventLoop_};
  QtCommonDialog commonDialog_{eventLoop_};
  QtWindowSystem windows_{eventLoop_};
  QtWindowMessages messages_{windows_, eventLoop_};
  QtNotificationArea notificationArea_{messages_};

 public:
  frmMain window{{.windows = windows_,
                  .eventLoop = eventLoop_,
                  .messageBoxes = messageBoxes_,
                  .promptBoxes = promptBoxes_,
                  .commonDialog = commonDialog_,
                  .clock = clock_,
                  .icmp = icmp_,
                  .sockets = sockets_,
                  .rdp = attempts_,
                  .settings = settings_,
                  .fileSystem = fileSystem_,
                  .notificationArea = notificationArea_,
                  .versions = versions_,
                  .messages = messages_,
                  .registry = registry_,
                  .processes = processes_,
                  .programFolder = {}}};
};

}  // namespace kestrava
