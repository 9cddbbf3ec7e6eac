#pragma once

#include <string>

namespace kestrava {

class Clock;
class CommonDialog;
class EventLoop;
class FileWorker;
class IcmpService;
class MessageBoxes;
class MsRdpClient2;
class NotificationArea;
class Processes;
class PromptBoxes;
class Registry;
class SettingsStore;
class VersionInfo;
class WindowMessages;
class WindowsSockets;
class WindowSystem;

/// All that the program is given of the outside. Only the main window sees the whole; it hands each
/// piece below it the services that this piece may touch.
struct Platform {
  WindowSystem& windows;
  EventLoop& eventLoop;
  MessageBoxes& messageBoxes;
  PromptBoxes& promptBoxes;
  CommonDialog& commonDialog;
  Clock& clock;
  IcmpService& icmp;
  WindowsSockets& sockets;
  MsRdpClient2& rdp;
  SettingsStore& settings;
  FileWorker& files;
  NotificationArea& notificationArea;
  VersionInfo& versions;
  WindowMessages& messages;
  Registry& registry;
  Processes& processes;
  /// The folder in which the program's file lies.
  std::string programFolder;
};

}  // namespace kestrava
