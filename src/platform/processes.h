#pragma once

#include <string>

namespace kestrava {

/// Other programs.
class Processes {
 public:
  virtual ~Processes() = default;

  /// Starts a program and doesn't wait for it. `commandLine` is the program's path in double
  /// quotes, a blank, and one argument that goes to the program as it stands. No shell reads it.
  /// @throws RuntimeError (the system's number) if the program can't be started.
  virtual void Start(const std::string& commandLine) = 0;
};

}  // namespace kestrava
