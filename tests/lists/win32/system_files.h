#pragma once

#include <filesystem>
#include <string>

#include "platform/runtime_error.h"
#include "platform/win32/message_pump.h"
#include "platform/win32/system_error.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/win32_file_worker.h"

namespace kestrava::test {

// ASCII, so that names in UTF-8 and in Windows-1252 can stand in it.
inline constexpr const char* kAwkwardFolder = "/lists, ";
inline constexpr int kFileTooLarge = 223;  // ERROR_FILE_TOO_LARGE

inline std::filesystem::path NativePath(const std::string& name) { return ToWide(name); }

inline std::string SystemError(int number) {
  try {
    RaiseSystemError(static_cast<unsigned long>(number));
  } catch (const RuntimeError& error) {
    return std::to_string(number) + " - " + error.what();
  }
}

/// The files of this system, and what its event loop does for them.
struct SystemFiles {
  void Serve() { ServeNextMessage(loop); }

  Win32EventLoop loop;
  HandleWaits waits{loop};
  Win32FileWorker worker{waits};
};

}  // namespace kestrava::test
