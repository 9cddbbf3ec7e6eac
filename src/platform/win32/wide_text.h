#pragma once

#include <string>
#include <string_view>

namespace kestrava {

/// The program's bytes as the system shows them: valid UTF-8 as UTF-8, anything else as
/// Windows-1252.
std::wstring ToWide(std::string_view bytes);

/// What is shown of a text that may come from anywhere: its first 2 KiB, with an ellipsis where
/// there is more, and with a visible mark for each character that nobody could see.
std::wstring ToShownLine(std::string_view bytes);

/// The text without the multi-byte character of UTF-8 that its end has cut, if there is one.
std::string_view WithoutCutCharacter(std::string_view text);

/// What the user typed or chose, as UTF-8.
std::string ToBytes(std::wstring_view text);

/// The same as one line: each line end is a blank.
std::string LineToBytes(std::wstring_view text);

}  // namespace kestrava
