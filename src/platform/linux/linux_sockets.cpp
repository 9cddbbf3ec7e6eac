#include "platform/linux/linux_sockets.h"

#include <algorithm>
#include <limits>
#include <sys/resource.h>

namespace kestrava {

LinuxSockets::LinuxSockets() {
  constexpr rlim_t kMost = std::numeric_limits<std::int16_t>::max();
  rlimit files{};
  getrlimit(RLIMIT_NOFILE, &files);
  mostSockets_ = static_cast<std::int16_t>(std::min(files.rlim_cur, kMost));
}

int LinuxSockets::WSAStartup(std::uint16_t, WSADATA& data) {
  constexpr std::uint16_t kVersion = 0x0101;
  data.wVersion = kVersion;
  data.wHighVersion = kVersion;
  data.iMaxSockets = mostSockets_;
  ++starts_;
  return 0;
}

int LinuxSockets::WSACleanup() {
  if (starts_ == 0) return -1;
  --starts_;
  return 0;
}

}  // namespace kestrava
