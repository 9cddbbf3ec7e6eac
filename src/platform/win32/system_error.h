#pragma once

namespace kestrava {

/// @throws RuntimeError with an error of the system (winerror.h) and its text for people.
[[noreturn]] void RaiseSystemError(unsigned long error);

}  // namespace kestrava
