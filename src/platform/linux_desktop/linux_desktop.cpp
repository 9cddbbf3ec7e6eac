#include "platform/linux_desktop/linux_desktop.h"

#include <QCoreApplication>
#include <QFile>

namespace kestrava {

LinuxDesktop::LinuxDesktop() {
  Watch(descriptorWaits_);
  Watch(rdp_);
}

void LinuxDesktop::Watch(EventSource& source) {
  eventLoop_.Watch({.descriptor = source.Descriptor(),
                    .dispatch = [&source] { source.Dispatch(); },
                    .underWay = [&source] { return source.UnderWay(); }});
}

Platform LinuxDesktop::Services() {
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
          .programFolder = QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString()};
}

}  // namespace kestrava
