#include "platform/error_report.h"

#include <cstdio>

namespace kestrava {

void ReportError(const std::exception_ptr& error) noexcept {
  try {
    std::rethrow_exception(error);
  } catch (const std::exception& known) {
    std::fprintf(stderr, "kestrava: %s\n", known.what());
  } catch (...) {
    std::fputs("kestrava: unknown error in an event handler\n", stderr);
  }
}

}  // namespace kestrava
