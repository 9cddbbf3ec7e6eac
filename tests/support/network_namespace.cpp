#include "support/network_namespace.h"

#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <sched.h>
#include <stdexcept>
#include <unistd.h>

namespace kestrava::test {
namespace {

// Packets live for one hop. The peer forwards, so that it answers as a router does, but drops what
// is for the black hole.
constexpr char kOwnSetup[] =
    "set -e; ip link set lo up; echo 1 > /proc/sys/net/ipv4/ip_default_ttl;"
    "ip addr add 10.66.1.1/24 dev own; ip link set own up;"
    "ip route add 10.66.0.0/16 via 10.66.1.2; ip route add unreachable 10.66.9.0/24";
constexpr char kPeerSetup[] =
    "set -e; cd /proc/sys/net/ipv4; echo 1 > icmp_echo_ignore_all; echo 1 > ip_forward;"
    "echo 0 > icmp_ratelimit; echo 0 > conf/all/send_redirects;"
    "ip link set lo up; ip addr add 10.66.1.2/24 dev peer; ip link set peer up;"
    "ip route add blackhole 10.66.2.0/24; ip route add unreachable 10.66.3.0/24;"
    "ip route add 10.66.5.0/24 via 10.66.1.1";

int ownNamespace = -1;
int peerNamespace = -1;

int OpenNamespace() { return open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC); }

void Enter(int network) {
  if (setns(network, CLONE_NEWNET) != 0) throw std::runtime_error("setns failed");
}

std::string MakeNetwork() {
  if (!Unshare(CLONE_NEWNET)) return "no network namespace can be made here";
  ownNamespace = OpenNamespace();
  if (unshare(CLONE_NEWNET) != 0) return "no second network namespace can be made here";
  peerNamespace = OpenNamespace();
  Enter(ownNamespace);
  const auto pair = "ip link add own type veth peer name peer netns /proc/" +
                    std::to_string(getpid()) + "/fd/" + std::to_string(peerNamespace);
  bool done = std::system(pair.c_str()) == 0 && std::system(kOwnSetup) == 0;
  OnPeer([&done] { done = done && std::system(kPeerSetup) == 0; });
  return done ? "" : "no pair of links can be set up here";
}

}  // namespace

bool Unshare(int flags) {
  if (unshare(flags) == 0) return true;
  const auto user = std::to_string(geteuid());
  const auto group = std::to_string(getegid());
  if (unshare(CLONE_NEWUSER | flags) != 0) return false;
  std::ofstream("/proc/self/setgroups") << "deny";
  std::ofstream("/proc/self/uid_map") << "0 " + user + " 1";
  std::ofstream("/proc/self/gid_map") << "0 " + group + " 1";
  return true;
}

const std::string& NetworkNamespaceProblem() {
  static const std::string problem = MakeNetwork();
  return problem;
}

void OnPeer(const std::function<void()>& act) {
  Enter(peerNamespace);
  act();
  Enter(ownNamespace);
}

}  // namespace kestrava::test
