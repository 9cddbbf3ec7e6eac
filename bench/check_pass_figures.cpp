#include <cstdio>

#include "bare_echo.h"
#include "figure.h"
#include "figures.h"
#include "loopback_addresses.h"
#include "real_program.h"

namespace kestrava {

std::vector<std::string> LoopbackAddresses(int count) {
  std::vector<std::string> addresses;
  for (int machine = 0; machine < count; ++machine) {
    addresses.push_back("127.0." + std::to_string(machine / 250) + "." +
                        std::to_string(machine % 250 + 1));
  }
  return addresses;
}

namespace {

/// Each row of a pass over so many answering machines, over a bare echo.
double PassOverBareEchoes(int count, int rounds) {
  const auto addresses = LoopbackAddresses(count);
  RealProgram program;
  program.Fill(addresses);
  std::fprintf(stderr, "seconds for each of %d rows:\n", count);
  return RatioOf(
      rounds, [&] { return program.Check("Online (Ping Response)").clock / count; },
      [&] {
        const double seconds = SecondsOf([&] {
          for (const std::string& address : addresses) EchoBarely(address);
        });
        return seconds / count;
      });
}

}  // namespace

void MeasurePassRow(int rounds) { PrintFigure("pass_row", PassOverBareEchoes(1000, rounds), 1.3); }

void MeasurePassGrowth() {
  constexpr int kRounds = 7;
  PassOverBareEchoes(100, kRounds);
  PassOverBareEchoes(1000, kRounds);
  PassOverBareEchoes(10000, kRounds);
}

}  // namespace kestrava
