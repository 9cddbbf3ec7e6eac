#include "platform/error_report.h"

#include <cstdio>

#include "platform/program_title.h"

namespace kestrava {

void ReportError(const std::exception_ptr& error) noexcept {
  try {
    std::rethrow_exception(error);
  } catch (const std::exception& known) {
    std::fprintf(stderr, "%s: %s\n", kProgramName, known.what());
  } catch (...) {
    std::fprintf(stderr, "%s: unknown error\n", kProgramName);
  }
}

}  // namespace kestrava
