#include "system.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <fcntl.h>
#include <system_error>
#include <thread>
#include <unistd.h>

#include "child_process.h"
#include "platform/linux/file_descriptor.h"
#include "platform/qt/grid_view.h"

namespace kestrava {

namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

/// Takes user events, which carry the time at which they were posted, and keeps the longest wait.
class Stopwatch final : public QObject {
 public:
  struct Posted : QEvent {
    Posted() : QEvent(QEvent::User) {}
    steady_clock::time_point time = steady_clock::now();
  };

  std::chrono::duration<double> longest{};

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::User) return QObject::event(event);
    longest = std::max<std::chrono::duration<double>>(
        longest, steady_clock::now() - static_cast<Posted*>(event)->time);
    return true;
  }
};

}  // namespace

double ProcessorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

void ServeWaitingEvents() { QCoreApplication::processEvents(); }

void ServeNextEvents(EventLoop&) { QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); }

void Rest() { std::this_thread::sleep_for(1ms); }

void CatchUpTable(NativeDesktop& desktop, const frmMain& window) {
  auto* view = desktop.Windows().WidgetOf(window)->findChild<GridView*>();
  static_cast<GridModel*>(view->model())->CatchUp();
  // What has to be painted again waits as an event.
  QCoreApplication::processEvents();
}

void WriteFileBarely(const std::string& name, const std::string& bytes) {
  FileDescriptor file(open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
  if (!file ||
      write(file.Number(), bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()) ||
      fsync(file.Number()) != 0 || file.Close() != 0) {
    throw std::system_error(errno, std::generic_category(), name);
  }
}

void RunProgram(const std::string& file) { RunToEnd({file}); }

double LongestStallOf(void (*work)(void* context), void* context) {
  Stopwatch stopwatch;
  std::atomic<bool> working = true;
  std::thread poster([&] {
    for (; working; std::this_thread::sleep_for(1ms)) {
      QCoreApplication::postEvent(&stopwatch, new Stopwatch::Posted);
    }
  });
  work(context);
  working = false;
  poster.join();
  return stopwatch.longest.count();
}

}  // namespace kestrava
