#pragma once

namespace kestrava {

/// @throws RuntimeError with an error of the system (errno.h) and its text for people.
[[noreturn]] void RaiseSystemError(int error);

}  // namespace kestrava
