#include "probes/echo_status_text.h"

#include <algorithm>
#include <iterator>

namespace kestrava {

namespace {

struct StatusLine {
  std::int32_t code;
  const char* text;
};

constexpr StatusLine kStatusLines[] = {
    {0, "ip success"},
    {200, "ping timeout"},
    {11001, "ip buf too_small"},
    {11002, "ip dest net unreachable"},
    {11003, "ip dest host unreachable"},
    {11004, "ip dest prot unreachable"},
    {11005, "ip dest port unreachable"},
    {11006, "ip no resources"},
    {11007, "ip bad option"},
    {11008, "ip hw_error"},
    {11009, "ip packet too_big"},
    {11010, "ip req timed out"},
    {11011, "ip bad req"},
    {11012, "ip bad route"},
    {11013, "ip ttl expired transit"},
    {11014, "ip ttl expired reassem"},
    {11015, "ip param_problem"},
    {11016, "ip source quench"},
    {11017, "ip option too_big"},
    {11018, "ip bad destination"},
    {11019, "ip addr deleted"},
    {11020, "ip spec mtu change"},
    {11021, "ip mtu_change"},
    {11022, "ip unload"},
    {11023, "ip addr added"},
    {11050, "ip general failure"},
    {11255, "ip pending"},
};

}  // namespace

std::string EchoStatusText(std::int32_t code) {
  const auto line = std::ranges::find(kStatusLines, code, &StatusLine::code);
  const char* text = line == std::end(kStatusLines) ? "unknown  msg returned" : line->text;
  return std::to_string(code) + "   [ " + text + " ]";
}

}  // namespace kestrava
