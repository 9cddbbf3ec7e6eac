#include "platform/event.h"

#include <cstdio>
#include <exception>

namespace kestrava {

void Event::Raise() const noexcept {
  if (!handler_) return;
  try {
    handler_();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kestrava: %s\n", error.what());
  } catch (...) {
    std::fputs("kestrava: unknown error in an event handler\n", stderr);
  }
}

}  // namespace kestrava
