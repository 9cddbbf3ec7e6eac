#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace kestrava {

/// Decodes a text: valid UTF-8 as UTF-8, anything else as Windows-1252, so that lists from older
/// machines read right. Never fails.
QString ToShown(std::string_view bytes);

/// What is shown of a text that may come from anywhere: its first 2 KiB, with an ellipsis where
/// there is more, and with a visible mark for each character that nobody could see.
QString ToShownLine(std::string_view bytes);

/// The text without the multi-byte character of UTF-8 that its end has cut, if there is one.
std::string_view WithoutCutCharacter(std::string_view text);

/// Encodes what the user typed: UTF-8.
std::string ToBytes(const QString& text);

/// The same for what the user typed into a field of one line: the line ends that a pasted text may
/// bring along become blanks.
std::string LineToBytes(QString text);

}  // namespace kestrava
