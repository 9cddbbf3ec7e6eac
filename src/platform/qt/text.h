#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace kestrava {

/// Decodes program text for showing: valid UTF-8 as UTF-8, anything else as Windows-1252, so that
/// lists from older machines read right. Never fails.
QString ToShown(std::string_view bytes);

/// Encodes what the user typed: UTF-8.
std::string ToBytes(const QString& text);

/// The same for what the user typed into a field of one line: the line ends that a pasted text may
/// bring along become blanks.
std::string LineToBytes(QString text);

}  // namespace kestrava
