#pragma once

#include <string>
#include <vector>

namespace kestrava {

/// What followed the program's name when it was started.
std::vector<std::string> Arguments();

/// Where a program tells of what it was asked for.
enum class Answer { Output, Error };

/// Writes the text where the caller of the program reads its standard output or its standard error:
/// in a file, a pipe or a console. A program with windows that was started by hand, even in a
/// console, has neither; there a message box shows the text until the user closes it.
/// @return whether all of it was written.
bool Tell(Answer kind, const std::string& text);

}  // namespace kestrava
