#include "child_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace kestrava {

void RunToEnd(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);

  posix_spawn_file_actions_t redirection;
  posix_spawn_file_actions_init(&redirection);
  posix_spawn_file_actions_addopen(&redirection, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t process = 0;
  const int error =
      posix_spawnp(&process, arguments[0], &redirection, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&redirection);
  if (error != 0) throw std::system_error(error, std::generic_category(), words[0]);

  int status = 0;
  waitpid(process, &status, 0);
  if (status != 0) throw std::runtime_error(words[0] + " failed");
}

}  // namespace kestrava
