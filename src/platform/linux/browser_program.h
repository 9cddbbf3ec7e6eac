#pragma once

#include <string>
#include <vector>

namespace kestrava {

/// The command of the program that shows the user's web pages, word by word, the absolute path of
/// the program first; empty if the user has none. The path holds no double quote, and its file is
/// there and may be run.
std::vector<std::string> FindBrowser();

/// The same command with `address` in the place, or the places, that it has for one; as its last
/// word if it has none.
std::vector<std::string> WithAddress(const std::vector<std::string>& command,
                                     const std::string& address);

}  // namespace kestrava
