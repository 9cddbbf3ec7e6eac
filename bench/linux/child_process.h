#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace kestrava {

/// A program that runs beside this one, with its output thrown away.
class ChildProcess {
 public:
  /// @param words the program, looked up like a shell does, and its arguments.
  /// @throws std::system_error if it can't be run.
  explicit ChildProcess(std::vector<std::string> words);
  /// Kills it if it still runs.
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// The number of the process until it was waited for.
  pid_t Number() const { return number_; }

  /// Waits for its end.
  /// @throws std::runtime_error unless it ends with status 0.
  void AwaitSuccess();

 private:
  static constexpr pid_t kEnded = 0;

  pid_t number_ = kEnded;
};

/// Runs a program to its end.
/// @throws as the two calls of `ChildProcess` that it is made of.
void RunToEnd(std::vector<std::string> words);

}  // namespace kestrava
