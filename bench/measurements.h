#pragma once

#include <functional>
#include <span>
#include <string_view>

namespace kestrava {

/// What can be measured, by the name that the user gives.
struct Measurement {
  std::string_view name;
  std::function<void()> run;
};

/// Runs those whose names are given, all without names. An error is told on standard error.
/// @return the program's exit status.
int Run(std::span<const Measurement> measurements, std::span<char* const> names);

}  // namespace kestrava
