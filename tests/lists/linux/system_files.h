#pragma once

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <poll.h>
#include <string>

#include "platform/linux/linux_file_worker.h"

namespace kestrava::test {

inline constexpr const char* kAwkwardFolder = "/lists, \xC3\xBC\xFF ";
inline constexpr int kFileTooLarge = EFBIG;

inline std::filesystem::path NativePath(const std::string& name) { return name; }

inline std::string SystemError(int number) {
  return std::to_string(number) + " - " + std::strerror(number);
}

/// The files of this system, and what its event loop does for them.
struct SystemFiles {
  void Serve() {
    pollfd watched{waits.Descriptor(), POLLIN, 0};
    poll(&watched, 1, -1);
    waits.Dispatch();
  }

  DescriptorWaits waits;
  LinuxFileWorker worker{waits};
};

}  // namespace kestrava::test
