#pragma once

#include <string>
#include <vector>

namespace kestrava {

/// Runs a program to its end with its standard output thrown away.
/// @param words the program, looked up like a shell does, and its arguments.
/// @throws std::system_error if it can't be run, std::runtime_error unless it ends with status 0.
void RunToEnd(std::vector<std::string> words);

}  // namespace kestrava
