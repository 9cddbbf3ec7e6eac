#pragma once

#include <optional>
#include <string>

namespace kestrava {

/// The absolute path of a program that is there, may be run, and shows the page whose address is
/// its one argument; nothing if the user has none. The path holds no double quote.
std::optional<std::string> FindBrowserProgram();

}  // namespace kestrava
