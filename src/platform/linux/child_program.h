#pragma once

#include <span>
#include <string>
#include <sys/types.h>

namespace kestrava {

/// In place of a descriptor: what the program prints goes nowhere.
inline constexpr int kNoOutput = -1;

/// Starts the program `words[0]`, a path or a name to be looked for in PATH, with `words` as its
/// arguments. It gets nothing of this program: no input, no descriptor but `output` (both its
/// output and its error output), no blocked or ignored signal, which it would inherit otherwise,
/// and a session of its own.
/// @param environment of the program, each text NAME=VALUE; the last pointer is nullptr.
/// @param process its number afterwards.
/// @return 0, or the error (errno.h) that kept it from starting. It may be called after fork(2):
///   of what POSIX forbids there it only takes memory, which glibc allows.
int StartProgram(std::span<std::string> words, int output, char* const environment[],
                 pid_t& process);

}  // namespace kestrava
