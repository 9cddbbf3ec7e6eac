#include "figure.h"

#include <algorithm>
#include <cstdio>

namespace kestrava {

void PrintFigure(const char* name, double value, double target, Bound bound) {
  const bool reached = bound == Bound::AtMost ? value <= target : value >= target;
  std::printf("%s %.4g %g %s\n", name, value, target, reached ? "ok" : "short");
  std::fflush(stdout);
}

double Median(std::vector<double> samples) {
  const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
  std::ranges::nth_element(samples, middle);
  return *middle;
}

double SecondsOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double RatioOf(int rounds, const std::function<double()>& ours,
               const std::function<double()>& floor) {
  ours();
  floor();
  std::vector<double> ourSamples;
  std::vector<double> floorSamples;
  for (int round = 0; round < rounds; ++round) {
    floorSamples.push_back(floor());
    ourSamples.push_back(ours());
  }
  const double ourMedian = Median(std::move(ourSamples));
  const double floorMedian = Median(std::move(floorSamples));
  std::fprintf(stderr, "  ours %.4g, floor %.4g\n", ourMedian, floorMedian);
  return ourMedian / floorMedian;
}

}  // namespace kestrava
