#pragma once

#include <string>
#include <vector>

namespace kestrava {

/// What the balloon says of a check pass in which the connections of these names failed; one name
/// at least.
std::string FailureReport(const std::vector<std::string>& failedConnections);

}  // namespace kestrava
