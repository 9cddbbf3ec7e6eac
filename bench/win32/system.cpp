#include "system.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <stdexcept>
#include <system_error>

#include "platform/win32/grid_view.h"
#include "platform/win32/message_pump.h"
#include "platform/win32/message_window.h"
#include "platform/win32/owned_handle.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/win32_event_loop.h"

namespace kestrava {

namespace {

using std::chrono::steady_clock;

[[noreturn]] void RaiseLastError(const std::string& name) {
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), name);
}

double SecondsIn(const FILETIME& time) {
  return 1e-7 * (4294967296.0 * time.dwHighDateTime + time.dwLowDateTime);
}

/// Takes messages that another thread posts, with the time at which each was posted.
struct Stall {
  std::atomic<bool> working = true;
  double longest = 0;
  MessageWindow window{MessageWindow::Kind::MessagesOnly,
                       [this](unsigned message, std::uintptr_t, std::intptr_t posted) {
                         if (message != WM_APP) return false;
                         const steady_clock::duration wait =
                             steady_clock::now().time_since_epoch() -
                             steady_clock::duration(posted);
                         longest = std::max(longest, std::chrono::duration<double>(wait).count());
                         return true;
                       }};

  static DWORD WINAPI Post(void* context) {
    auto& stall = *static_cast<Stall*>(context);
    for (; stall.working; Sleep(1)) {
      PostMessageW(stall.window.Handle(), WM_APP, 0,
                   steady_clock::now().time_since_epoch().count());
    }
    return 0;
  }
};

}  // namespace

double ProcessorSeconds() {
  FILETIME begin{};
  FILETIME end{};
  FILETIME kernel{};
  FILETIME user{};
  GetProcessTimes(GetCurrentProcess(), &begin, &end, &kernel, &user);
  return SecondsIn(kernel) + SecondsIn(user);
}

void ServeWaitingEvents() {
  for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0;) Serve(message);
}

void ServeNextEvents(EventLoop& eventLoop) {
  ServeNextMessage(static_cast<Win32EventLoop&>(eventLoop));
}

void Rest() { Sleep(1); }

void CatchUpTable(NativeDesktop& desktop, const frmMain& window) {
  const HWND view =
      FindWindowExW(desktop.Windows().WindowOf(window), nullptr, WC_LISTVIEWW, nullptr);
  if (view == nullptr) RaiseLastError("the table's view");
  SendMessageW(view, WM_TIMER, GridView::kFrameTimer, 0);
  // What has to be painted again waits as a message.
  ServeWaitingEvents();
}

void WriteFileBarely(const std::string& name, const std::string& bytes) {
  const OwnedHandle file = OwnedFile(CreateFileW(ToWide(name).c_str(), GENERIC_WRITE, 0, nullptr,
                                                 CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD written = 0;
  if (!file ||
      WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ==
          0 ||
      FlushFileBuffers(file.get()) == 0) {
    RaiseLastError(name);
  }
}

void RunProgram(const std::string& file) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  if (CreateProcessW(ToWide(file + ".exe").c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                     nullptr, &start, &process) == 0) {
    RaiseLastError(file);
  }
  const OwnedHandle thread(process.hThread);
  const OwnedHandle ended(process.hProcess);
  WaitForSingleObject(ended.get(), INFINITE);
  DWORD status = 0;
  if (GetExitCodeProcess(ended.get(), &status) == 0 || status != 0) {
    throw std::runtime_error(file + " failed");
  }
}

double LongestStallOf(void (*work)(void* context), void* context) {
  Stall stall;
  const OwnedHandle poster(CreateThread(nullptr, 0, &Stall::Post, &stall, 0, nullptr));
  work(context);
  stall.working = false;
  WaitForSingleObject(poster.get(), INFINITE);
  return stall.longest;
}

}  // namespace kestrava
