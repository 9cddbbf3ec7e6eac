#include "tray/failure_report.h"

#include <algorithm>
#include <string_view>

#include "platform/ascii.h"

namespace kestrava {

namespace {

constexpr const char* kClickHere = "\r\nClick Here to See More Information";

bool ContainsIgnoringCase(std::string_view text, std::string_view word) {
  const auto found =
      std::search(text.begin(), text.end(), word.begin(), word.end(),
                  [](char left, char right) { return LowerCase(left) == LowerCase(right); });
  return found != text.end();
}

}  // namespace

std::string FailureReport(const std::vector<std::string>& failedConnections) {
  if (failedConnections.size() > 1) {
    return "Kestrava failed to communicate with " + std::to_string(failedConnections.size()) +
           " of your Connections" + kClickHere;
  }
  const std::string& name = failedConnections.front();
  const std::string report = "Kestrava failed to communicate with the " + name;
  return ContainsIgnoringCase(name, "connection") ? report : report + " Connection" + kClickHere;
}

}  // namespace kestrava
