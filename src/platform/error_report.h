#pragma once

#include <exception>

namespace kestrava {

/// Tells on standard error what went wrong, for an error that has nowhere else to go.
/// @param error must hold one.
void ReportError(const std::exception_ptr& error) noexcept;

}  // namespace kestrava
