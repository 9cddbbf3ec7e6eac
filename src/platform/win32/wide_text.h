#pragma once

#include <string>
#include <string_view>

namespace kestrava {

/// The program's bytes as the system shows them: valid UTF-8 as UTF-8, anything else as
/// Windows-1252.
std::wstring ToWide(std::string_view bytes);

/// What the user typed or chose, as UTF-8.
std::string ToBytes(std::wstring_view text);

/// The same as one line: each line end is a blank.
std::string LineToBytes(std::wstring_view text);

}  // namespace kestrava
