#pragma once

#include <QString>
#include <string_view>

namespace kestrava {

/// The text in a field of a record: up to the first NUL, or all of it. A multi-byte character that
/// the field's end has cut is left out, and so is the CR of a line break. Other characters that
/// nobody could see have visible marks in their place.
QString NotifyIconText(std::string_view field);

}  // namespace kestrava
