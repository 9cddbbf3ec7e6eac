#pragma once

#include "platform/processes.h"

namespace kestrava {

/// Other programs, started without anything of this one: nothing to read or write, no descriptor,
/// no blocked or ignored signal, and a session of their own, so that they outlive the terminal.
class LinuxProcesses final : public Processes {
 public:
  /// @throws RuntimeError (a number of errno.h) also if `commandLine` has another form.
  void Start(const std::string& commandLine) override;
};

}  // namespace kestrava
