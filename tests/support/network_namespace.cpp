#include "support/network_namespace.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <sched.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrava::test {
namespace {

int ownNamespace = -1;
int peerNamespace = -1;

int OpenNamespace() { return open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC); }

void Enter(int network) {
  if (setns(network, CLONE_NEWNET) != 0) throw std::runtime_error("setns failed");
}

template <typename Act>
void OnPeer(Act act) {
  Enter(peerNamespace);
  act();
  Enter(ownNamespace);
}

/// Leaves the network as root, or else as the root of a user namespace.
bool LeaveNetwork() {
  if (unshare(CLONE_NEWNET) == 0) return true;
  const auto user = std::to_string(geteuid());
  const auto group = std::to_string(getegid());
  if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) return false;
  std::ofstream("/proc/self/setgroups") << "deny";
  std::ofstream("/proc/self/uid_map") << "0 " + user + " 1";
  std::ofstream("/proc/self/gid_map") << "0 " + group + " 1";
  return true;
}

std::string MakeNetwork() {
  if (!LeaveNetwork()) return "no network namespace can be made here";
  ownNamespace = OpenNamespace();
  if (unshare(CLONE_NEWNET) != 0) return "no second network namespace can be made here";
  peerNamespace = OpenNamespace();
  Enter(ownNamespace);
  const auto pair = "ip link add own type veth peer name peer netns /proc/" +
                    std::to_string(getpid()) + "/fd/" + std::to_string(peerNamespace);
  bool done = std::system(pair.c_str()) == 0 && std::system("'" SUPPORT "/network.sh' own") == 0;
  OnPeer([&done] { done = done && std::system("'" SUPPORT "/network.sh' peer") == 0; });
  return done ? "" : "no pair of links can be set up here";
}

}  // namespace

const std::string& NetworkNamespaceProblem() {
  static const std::string problem = MakeNetwork();
  return problem;
}

PeerProgram::PeerProgram(std::vector<std::string> words) {
  words.front().insert(0, SUPPORT "/");
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  int output[2];
  if (pipe(output) != 0) throw std::runtime_error("no pipe can be made");
  OnPeer([&] {
    process_ = fork();
    if (process_ != 0) return;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    dup2(output[1], STDOUT_FILENO);
    execv(arguments.front(), arguments.data());
    _exit(127);
  });
  close(output[1]);
  char ready = 0;
  EXPECT_EQ(read(output[0], &ready, 1), 1) << words.front() << " can't be started";
  close(output[0]);
}

PeerProgram::~PeerProgram() {
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
}

}  // namespace kestrava::test
