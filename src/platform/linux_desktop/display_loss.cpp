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

std::function<void()> lastWords;
QtMessageHandler present = nullptr;

void SayLastWords() {
  if (const auto words = std::exchange(lastWords, nullptr)) words();
}

/// With X, both the toolkit and Xlib end the process by exit(3). With Wayland it is _exit(2), which
/// asks nobody, and all that comes ahead of it is a message (Qt 6.4, qwaylanddisplay.cpp).
void Hear(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  present(type, context, message);
  if (!message.startsWith(QStringLiteral("The Wayland connection "))) return;
  if (QThread::currentThread() == QCoreApplication::instance()->thread()) {
    SayLastWords();
  } else {
    // A thread that reads for the toolkit was first. The program's own meets the same error at
    // once.
    std::this_thread::sleep_for(std::chrono::seconds(1));
  }
}

}  // namespace

DisplayLoss::DisplayLoss(std::function<void()> words) {
  lastWords = std::move(words);
  present = qInstallMessageHandler(Hear);
  std::atexit(SayLastWords);
}

DisplayLoss::~DisplayLoss() {
  qInstallMessageHandler(present);
  lastWords = nullptr;
}

}  // namespace kestrava
