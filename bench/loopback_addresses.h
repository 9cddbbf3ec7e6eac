#pragma once

#include <string>
#include <vector>

namespace kestrava {

/// Addresses of this machine, all different, from 127.0.0.1 on.
std::vector<std::string> LoopbackAddresses(int count);

}  // namespace kestrava
