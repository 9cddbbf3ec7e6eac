#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/processes.h"

namespace kestrava {

/// Other programs, started without anything of this one: nothing to read or write, no descriptor,
/// no blocked or ignored signal, and a session of their own, so that they outlive the terminal.
///
/// The path of the user's browser stands for its whole command: `flatpak run NAME`, say, or
/// `exo-open --launch WebBrowser`.
class LinuxProcesses final : public Processes {
 public:
  /// @throws RuntimeError (a number of errno.h) also if `commandLine` has another form.
  void Start(const std::string& commandLine) override;

  /// From now on a program that is to show the page at `url` gets `file` in its place, while that
  /// can be read. Of several files for one page the first counts.
  void ShowInstead(const std::string& url, const std::filesystem::path& file);

 private:
  struct Page {
    std::string url;
    std::filesystem::path file;
  };
  std::string AddressFor(const std::string& url) const;

  std::vector<Page> pages_;
};

}  // namespace kestrava
