#pragma once

#include <string>

namespace kestrava {

/// Whether the program was built for a web site: whether its host is one that somebody can have
/// (RFC 2606 keeps the names that end in ".example" from everybody).
bool HasWebSite();

/// The program's web site, with no path after the host.
std::string WebSiteUrl();

/// The manual.
std::string ManualUrl();

}  // namespace kestrava
