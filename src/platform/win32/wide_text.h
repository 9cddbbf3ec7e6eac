#pragma once

#include <string>
#include <string_view>

namespace kestrava {

/// A text of the program's as the system has texts, decoded by `Decoded`.
std::wstring ToWide(std::string_view bytes);

/// What is shown of a text that may come from anywhere, as `ShownLine` has it.
std::wstring ToShownLine(std::string_view bytes);

/// What is shown of a field of the icon's record, as `ShownField` has it.
std::wstring ToShownField(std::string_view field);

/// What the user typed or chose, as UTF-8.
std::string ToBytes(std::wstring_view text);

/// The same as one line: each line end is a blank.
std::string LineToBytes(std::wstring_view text);

}  // namespace kestrava
