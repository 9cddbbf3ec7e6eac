#include "platform/linux/linux_processes.h"

#include <cerrno>
#include <cstring>
#include <glib.h>
#include <memory>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/linux/browser_program.h"
#include "platform/linux/child_program.h"
#include "platform/linux/system_error.h"

namespace kestrava {

void LinuxProcesses::Start(const std::string& commandLine) {
  constexpr const char* kPathEnd = "\" ";
  const auto end = commandLine.find(kPathEnd, 1);
  if (end == commandLine.npos || commandLine.front() != '"') RaiseSystemError(EINVAL);
  const std::string path = commandLine.substr(1, end - 1);
  auto command = FindBrowser();
  if (command.empty() || command.front() != path) command = {path};
  auto words = WithAddress(command, AddressFor(commandLine.substr(end + std::strlen(kPathEnd))));

  // The program's parent is a helper that ends at once and tells by its exit status, in which every
  // error number of Linux has room, what came of the start. The system then takes the orphan over,
  // so that nobody here has to wait for its end.
  const pid_t helper = fork();
  if (helper < 0) RaiseSystemError(errno);
  if (helper == 0) {
    pid_t program = 0;
    _exit(StartProgram(words, kNoOutput, environ, program));
  }
  int status = 0;
  while (waitpid(helper, &status, 0) < 0) {
    if (errno != EINTR) RaiseSystemError(errno);
  }
  const int error = WIFEXITED(status) ? WEXITSTATUS(status) : ECHILD;
  if (error != 0) RaiseSystemError(error);
}

void LinuxProcesses::ShowInstead(const std::string& url, const std::filesystem::path& file) {
  pages_.push_back({url, file});
}

std::string LinuxProcesses::AddressFor(const std::string& url) const {
  for (const Page& page : pages_) {
    if (page.url != url || access(page.file.c_str(), R_OK) != 0) continue;
    std::error_code error;
    const auto path = std::filesystem::canonical(page.file, error);
    const std::unique_ptr<char, decltype(&g_free)> address(
        g_filename_to_uri(path.c_str(), nullptr, nullptr), &g_free);
    if (address) return address.get();
  }
  return url;
}

}  // namespace kestrava
