#pragma once

#include <string>
#include <string_view>

namespace kestrava {

/// What is shown of a text that may come from anywhere, in UTF-16: its first 2 KiB, with an
/// ellipsis where there is more, and with a visible mark for each character that nobody could see.
std::u16string ShownLine(std::string_view bytes);

/// What is shown of the text in a field of the icon's record, which ends at the first NUL or is all
/// of the field: its lines, each ended by LF, with marks as in `ShownLine`. A multi-byte character
/// that the field's end has cut is left out, and so is the CR of a line's end.
std::u16string ShownField(std::string_view field);

/// What the user typed or pasted into a field of one line: each CR and each LF is a blank.
std::string AsOneLine(std::string bytes);

}  // namespace kestrava
