#include "platform/linux/child_program.h"

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>
#include <vector>

namespace kestrava {

namespace {

class SpawnSetup {
 public:
  explicit SpawnSetup(int output) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    for (const int target : {STDOUT_FILENO, STDERR_FILENO}) {
      if (output == kNoOutput) {
        posix_spawn_file_actions_addopen(&actions_, target, "/dev/null", O_WRONLY, 0);
      } else {
        posix_spawn_file_actions_adddup2(&actions_, output, target);
      }
    }
    posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
    posix_spawnattr_init(&attributes_);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    posix_spawnattr_setflags(&attributes_,
                             POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
  }
  ~SpawnSetup() {
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&actions_);
  }
  SpawnSetup(const SpawnSetup&) = delete;
  SpawnSetup& operator=(const SpawnSetup&) = delete;

  const posix_spawn_file_actions_t* Actions() const { return &actions_; }
  const posix_spawnattr_t* Attributes() const { return &attributes_; }

 private:
  posix_spawn_file_actions_t actions_;
  posix_spawnattr_t attributes_;
};

}  // namespace

int StartProgram(std::span<std::string> words, int output, char* const environment[],
                 pid_t& process) {
  const SpawnSetup setup(output);
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  return posix_spawnp(&process, arguments.front(), setup.Actions(), setup.Attributes(),
                      arguments.data(), environment);
}

}  // namespace kestrava
