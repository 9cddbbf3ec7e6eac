#include "platform/linux_desktop/display_loss.h"

#include <QCoreApplication>
#include <QString>
#include <QThread>
#include <chrono>
#include <cstdlib>
#include <thread>
#include <utility>

namespace kestrava {

namespace {

std::function<void()> onLoss;
QtMessageHandler previousHandler = nullptr;

void RunOnce() {
  if (const auto run = std::exchange(onLoss, nullptr)) run();
}

/// With X, both the toolkit and Xlib end the process by exit(3). With Wayland it is _exit(2), which
/// asks nobody, and all that comes ahead of it is a message (Qt 6.4, qwaylanddisplay.cpp).
void HandleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  previousHandler(type, context, message);
  if (!message.startsWith(QStringLiteral("The Wayland connection "))) return;
  if (QThread::currentThread() == QCoreApplication::instance()->thread()) {
    RunOnce();
  } else {
    // A thread that reads for the toolkit was first. The program's own meets the same error at
    // once.
    std::this_thread::sleep_for(std::chrono::seconds(1));
  }
}

}  // namespace

DisplayLoss::DisplayLoss(std::function<void()> lost) {
  onLoss = std::move(lost);
  previousHandler = qInstallMessageHandler(HandleMessage);
  std::atexit(RunOnce);
}

DisplayLoss::~DisplayLoss() {
  qInstallMessageHandler(previousHandler);
  onLoss = nullptr;
}

}  // namespace kestrava
