#pragma once

#include <string>
#include <vector>

#include "platform/processes.h"

namespace kestrava {

/// Other programs, started without any handle of this one.
class Win32Processes final : public Processes {
 public:
  /// @throws RuntimeError (a number of winerror.h) also if `commandLine` has another form.
  void Start(const std::string& commandLine) override;

  /// From now on a program that is to show the page at `url` gets the file at the path `file` in
  /// its place, while there is such a file.
  void ShowInstead(const std::string& url, const std::string& file);

 private:
  struct Page {
    std::string url;
    std::wstring file;
  };
  std::wstring AddressFor(const std::string& url) const;

  std::vector<Page> pages_;
};

}  // namespace kestrava
