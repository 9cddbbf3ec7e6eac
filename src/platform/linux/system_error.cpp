#include "platform/linux/system_error.h"

#include <system_error>

#include "platform/runtime_error.h"

namespace kestrava {

void RaiseSystemError(int error) {
  throw RuntimeError(SystemErrorNumber{error}, std::generic_category().message(error));
}

}  // namespace kestrava
