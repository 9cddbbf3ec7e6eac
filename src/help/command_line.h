#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kestrava {

/// The exit status after arguments that can't be used, as of most programs.
inline constexpr int kExitUsage = 2;

/// What the program prints, and then ends, for an argument that wants no more than that: "--help"
/// or
/// "--version"; nothing for any other.
/// @param moreHelp a paragraph for the end of the help, or empty.
std::optional<std::string> AnswerTo(std::string_view argument, std::string_view moreHelp = {});

/// What the program prints as an error, and then ends, for an argument that it doesn't know.
std::string RefusalOf(std::string_view argument);

}  // namespace kestrava
