#pragma once

#include <cstdint>
#include <string>

namespace kestrava {

/// The status of an echo in words, after its number: "11010   [ ip req timed out ]".
std::string EchoStatusText(std::int32_t code);

}  // namespace kestrava
