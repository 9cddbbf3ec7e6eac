#include "help/web_pages.h"

#include "help/program_info.h"

namespace kestrava {

std::string WebSiteUrl() { return std::string("http://") + kWebHost; }

std::string ManualUrl() { return WebSiteUrl() + "/KVManual.html"; }

}  // namespace kestrava
