#include "child_process.h"

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace kestrava {

ChildProcess::ChildProcess(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);

  posix_spawn_file_actions_t redirection;
  posix_spawn_file_actions_init(&redirection);
  posix_spawn_file_actions_addopen(&redirection, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_adddup2(&redirection, STDOUT_FILENO, STDERR_FILENO);
  const int error =
      posix_spawnp(&number_, arguments[0], &redirection, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&redirection);
  if (error != 0) throw std::system_error(error, std::generic_category(), words[0]);
}

ChildProcess::~ChildProcess() {
  if (number_ == kEnded) return;
  kill(number_, SIGKILL);
  waitpid(number_, nullptr, 0);
}

void ChildProcess::AwaitSuccess() {
  int status = 0;
  waitpid(std::exchange(number_, kEnded), &status, 0);
  if (status != 0) throw std::runtime_error("a program that was run failed");
}

void RunToEnd(std::vector<std::string> words) { ChildProcess(std::move(words)).AwaitSuccess(); }

}  // namespace kestrava
