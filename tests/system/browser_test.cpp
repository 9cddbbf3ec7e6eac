#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sys/wait.h>
#include <unistd.h>

#include "help/RegAPI.h"
#include "platform/linux/browser_program.h"
#include "platform/linux/file_descriptor.h"
#include "platform/linux/linux_processes.h"
#include "platform/linux/linux_registry.h"
#include "platform/runtime_error.h"

namespace kestrava::test {

namespace fs = std::filesystem;

/// A user's folder, "~" in the texts below, that goes with the test.
class Browser : public testing::Test {
 protected:
  Browser() {
    EXPECT_NE(mkdtemp(home_.data()), nullptr);
    for (const char* program :
         {"bin/good", "bin/qu\"ote", "my browser/run", "x/x-www-browser", "last/xdg-open"}) {
      Write(program, "");
    }
    Write("bin/plain", "");
    fs::permissions(home_ + "/bin/plain", fs::perms::owner_read);
  }
  ~Browser() override { fs::remove_all(home_); }

  void Write(const char* name, const std::string& text) const {
    const fs::path path = home_ + '/' + name;
    fs::create_directories(path.parent_path());
    std::ofstream(path) << AtHome(text);
    fs::permissions(path, fs::perms::owner_all);
  }
  /// Makes `exec` the command of the desktop's handler of web pages.
  void Choose(const std::string& exec) const {
    Write("mimeapps.list", "[Default Applications]\nx-scheme-handler/http=b.desktop\n");
    Write("applications/b.desktop", "[Desktop Entry]\nType=Application\nName=B\nExec=" + exec);
    for (const char* name : {"DATA_HOME", "CONFIG_HOME", "DATA_DIRS", "CONFIG_DIRS"}) {
      setenv((std::string("XDG_") + name).c_str(), home_.c_str(), 1);
    }
  }
  std::string AtHome(const std::string& text) const {
    return std::regex_replace(text, std::regex("~"), home_);
  }

  std::string home_ = fs::temp_directory_path() / "browser.XXXXXX";
};

TEST_F(Browser, IsTheDesktopsOrThatOfTheEnvironment) {
  constexpr const char* kPath = "~/bin:~/x:~/last";
  const struct {
    const char *exec, *browsers, *path, *command;
  } cases[] = {
      {"~/bin/good --new %u", "x-www-browser", kPath, "~/bin/good --new URL "},
      {"\"~/my browser/run\" a=%U%% %i y", "good", kPath, "~/my browser/run a=URL% y "},
      {"good run @@u %F @@", "run", kPath, "~/bin/good run @@u URL @@ "},
      {"~/bin/plain %u", "", kPath, "~/x/x-www-browser URL "},
      {"missing", "~/bin/plain:missing:good run:x-www-browser", kPath, "~/bin/good run URL "},
      {"good \"", "'unclosed::~/my\\ browser/run -u=%s", kPath, "~/my browser/run -u=URL "},
      {"~/bin/qu\\\\\"ote", "good", kPath, "~/last/xdg-open URL "},
      {"~/bin/qu\\\\\"ote", "good", "~/bin:~/x", ""},
      {"~/bin", "~/bin:plain", "~/bin", ""},
  };
  for (const auto& [exec, browsers, path, command] : cases) {
    // GLib remembers the folders and files that it has seen, so each case has its own process.
    if (fork() == 0) {
      Choose(exec);
      setenv("PATH", AtHome(path).c_str(), 1);
      setenv("BROWSER", AtHome(browsers).c_str(), 1);
      std::string words;
      const auto found = FindBrowser();
      if (!found.empty()) {
        for (const std::string& word : WithAddress(found, "URL")) words += word + ' ';
      }
      _exit(words == AtHome(command) ? 0 : 1);
    }
    int status = 0;
    wait(&status);
    EXPECT_EQ(status, 0) << exec << " or " << browsers;
  }
}

TEST_F(Browser, StartsWithItsWordsAndNothingOfOurs) {
  // Only built-in commands of the shell leave its signal mask as it came.
  Write("my browser/run",
        "#!/bin/sh\n{ printf '%s\\n' $# \"$1\" \"$2\"; while read line; do echo \"$line\"; done"
        " </proc/$$/status; ls -l /proc/$$/fd; } >~/part; mv ~/part ~/record\n");
  const FileDescriptor ours(open(AtHome("~/bin/plain").c_str(), O_RDONLY));
  sigset_t ending;
  sigemptyset(&ending);
  sigaddset(&ending, SIGHUP);
  pthread_sigmask(SIG_BLOCK, &ending, nullptr);
  signal(SIGPIPE, SIG_IGN);
  const std::string url = "http://a/b c?\"d'&e;$(exit)|`f` %u * \\";
  Choose("\"~/my browser/run\" \"two words\"");
  LinuxRegistry registry;
  LinuxProcesses().Start(FindBrowserCommand(registry) + ' ' + url);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left to be waited for";
  for (int i = 0; i < 1000 && !fs::exists(AtHome("~/record")); ++i) usleep(10000);
  std::stringstream record;
  record << std::ifstream(AtHome("~/record")).rdbuf();
  EXPECT_TRUE(record.str().starts_with("2\ntwo words\n" + url + '\n')) << record.str();
  EXPECT_EQ(record.str().find("bin/plain"), std::string::npos) << record.str();
  // The C library's own two signals, 32 and 33, are ignored in what it starts.
  for (const char* line : {" 0 -> /dev/null\n", "SigBlk:\t0{16}\n", "SigIgn:\t.{8}[08]0{7}\n"}) {
    EXPECT_TRUE(std::regex_search(record.str(), std::regex(line))) << line << record.str();
  }
}

}  // namespace kestrava::test
