#pragma once

#include <chrono>
#include <functional>
#include <vector>

namespace kestrava {

enum class Bound { AtMost, AtLeast };

/// Prints one measured figure on standard output as the line "name value target ok", or "short" in
/// place of "ok" where the value misses the target.
void PrintFigure(const char* name, double value, double target, Bound bound = Bound::AtMost);

/// @param samples one or more.
double Median(std::vector<double> samples);

/// The seconds of the wall clock that `work` takes.
double SecondsOf(const std::function<void()>& work);

/// Measures two pieces of work by turns, so that whatever else the machine does meets both alike,
/// and divides the median of `ours` by that of `floor`. Each gives its own measure of one round.
double RatioOf(int rounds, const std::function<double()>& ours,
               const std::function<double()>& floor);

}  // namespace kestrava
