#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace kestrava {

/// A text of the program's as Qt has texts, decoded by `Decoded`.
QString ToShown(std::string_view bytes);

/// What is shown of a text that may come from anywhere, as `ShownLine` has it.
QString ToShownLine(std::string_view bytes);

/// What is shown of a field of the icon's record, as `ShownField` has it.
QString ToShownField(std::string_view field);

/// Encodes what the user typed: UTF-8.
std::string ToBytes(const QString& text);

/// The same for what the user typed into a field of one line: the line ends that a pasted text may
/// bring along become blanks.
std::string LineToBytes(const QString& text);

}  // namespace kestrava
