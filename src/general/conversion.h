#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kestrava {

/// True if the text as a whole is a decimal number, with or without a sign and a fraction, blanks
/// on either side allowed.
bool ReadsAsNumber(std::string_view text);

/// False for zero and "False", true for any other number and "True", in any case of letters, blanks
/// on either side allowed. Nothing for any other text.
std::optional<bool> ToBoolean(std::string_view text);

/// The text as a whole number: decimal digits, with or without a sign, blanks on either side
/// allowed.
/// @throws RuntimeError (13) if it isn't one, (6) if it doesn't fit 32 bits.
std::int32_t ToWholeNumber(std::string_view text);

}  // namespace kestrava
