#include "platform/event.h"

#include <exception>

#include "platform/error_report.h"

namespace kestrava {

void Event::Raise() const noexcept {
  if (!handler_) return;
  try {
    handler_();
  } catch (...) {
    ReportError(std::current_exception());
  }
}

}  // namespace kestrava
