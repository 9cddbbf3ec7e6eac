#include <algorithm>
#include <cstdio>
#include <fstream>
#include <linux/capability.h>
#include <stdexcept>
#include <sys/syscall.h>
#include <unistd.h>

#include "figure.h"
#include "figures.h"
#include "stall.h"

namespace kestrava {

namespace {

/// Grants or refuses this process ICMP sockets, so that echoes go out by them or by `ping`.
void AllowSockets(bool allow) {
  const gid_t group = getegid();
  std::ofstream("/proc/sys/net/ipv4/ping_group_range")
      << (allow ? group : group + 1) << ' ' << (allow ? group : group + 1);
  __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
  __user_cap_data_struct sets[2];
  syscall(SYS_capget, &header, sets);
  constexpr __u32 kBit = 1U << CAP_NET_RAW;
  sets[0].effective = allow ? sets[0].effective | kBit : sets[0].effective & ~kBit;
  if (syscall(SYS_capset, &header, sets) != 0) throw std::runtime_error("sockets stay as they are");
}

}  // namespace

void MeasureLongestStall(const std::string& address) {
  constexpr double kMilliseconds = 1000;
  const std::vector<std::string> addresses(10, address);
  double longest = LongestStall(addresses);
  std::fprintf(stderr, "  by socket %.3g s, ", longest);
  AllowSockets(false);
  const double byPing = LongestStall(addresses);
  AllowSockets(true);
  std::fprintf(stderr, "by ping %.3g s\n", byPing);
  longest = std::max(longest, byPing);
  PrintFigure("longest_stall", kMilliseconds * longest, 20);
}

}  // namespace kestrava
