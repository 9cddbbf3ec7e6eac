#include "platform/linux/linux_processes.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/runtime_error.h"

namespace kestrava {
namespace {

[[noreturn]] void Fail(int error) { throw RuntimeError(error, std::strerror(error)); }

class SpawnSetup {
 public:
  SpawnSetup() {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
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

  /// @return 0, or the error that kept the program from starting.
  int Spawn(char* const arguments[]) const {
    pid_t process = 0;
    return posix_spawn(&process, arguments[0], &actions_, &attributes_, arguments, environ);
  }

 private:
  posix_spawn_file_actions_t actions_;
  posix_spawnattr_t attributes_;
};

}  // namespace

void LinuxProcesses::Start(const std::string& commandLine) {
  constexpr const char* kPathEnd = "\" ";
  const auto end = commandLine.find(kPathEnd, 1);
  if (end == commandLine.npos || commandLine.front() != '"') Fail(EINVAL);
  std::string path = commandLine.substr(1, end - 1);
  std::string argument = commandLine.substr(end + std::strlen(kPathEnd));
  char* const arguments[] = {path.data(), argument.data(), nullptr};
  const SpawnSetup setup;

  // The program's parent is a helper that ends at once and tells by its exit status, in which every
  // error number of Linux has room, what came of the start. The system then takes the orphan over,
  // so that nobody here has to wait for its end.
  const pid_t helper = fork();
  if (helper < 0) Fail(errno);
  if (helper == 0) _exit(setup.Spawn(arguments));
  int status = 0;
  while (waitpid(helper, &status, 0) < 0) {
    if (errno != EINTR) Fail(errno);
  }
  const int error = WIFEXITED(status) ? WEXITSTATUS(status) : ECHILD;
  if (error != 0) Fail(error);
}

}  // namespace kestrava
