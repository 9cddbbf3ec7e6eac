#pragma once

#include <string>
#include <string_view>

namespace kestrava {

class MSFlexGrid;
class TextReader;

inline constexpr std::string_view kListLineEnd = "\r\n";

/// The connection table as the text of a list: a magic line, then a line of five texts for each
/// connection. The last line has no line end yet, but room for one.
std::string ListText(MSFlexGrid& grid);

enum class IsList { No, Yes };

/// Appends the connections of a list to the table, one by one.
/// @return whether the text is a list: whether it has the magic line.
/// @throws RuntimeError (5) at a line with fewer than four commas, (6) at one beyond 1 MiB and at
/// the 2,097,153rd line; the connections above it stay.
IsList ReadListText(TextReader& list, MSFlexGrid& grid);

}  // namespace kestrava
