#pragma once

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
};

}  // namespace kestrava
