#include "help/web_pages.h"

#include <string_view>

#include "help/program_info.h"

namespace kestrava {

bool HasWebSite() { return !std::string_view(kWebHost).ends_with(".example"); }

std::string WebSiteUrl() { return std::string("http://") + kWebHost; }

std::string ManualUrl() { return WebSiteUrl() + "/KVManual.html"; }

}  // namespace kestrava
