#include "measurements.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace kestrava {

int Run(std::span<const Measurement> measurements, std::span<char* const> names) {
  try {
    for (const Measurement& measurement : measurements) {
      if (names.empty() || std::ranges::find(names, measurement.name) != names.end()) {
        measurement.run();
      }
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}

}  // namespace kestrava
