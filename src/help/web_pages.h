#pragma once

#include <string>

namespace kestrava {

/// The program's web site, with no path after the host.
std::string WebSiteUrl();

/// The manual.
std::string ManualUrl();

}  // namespace kestrava
