#include <arpa/inet.h>
#include <cstdio>

#include "bare_echo.h"
#include "child_process.h"
#include "figure.h"
#include "figures.h"
#include "real_program.h"

namespace kestrava {

namespace {

/// Addresses of this machine, all different, from 127.0.0.1 on.
std::vector<std::string> LoopbackAddresses(int count) {
  std::vector<std::string> addresses;
  for (int machine = 0; machine < count; ++machine) {
    addresses.push_back("127.0." + std::to_string(machine / 250) + "." +
                        std::to_string(machine % 250 + 1));
  }
  return addresses;
}

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
          for (const std::string& address : addresses) EchoBarely(inet_addr(address.c_str()));
        });
        return seconds / count;
      });
}

/// A pass over answering machines, over another program's way to ask them.
double PassOver(const std::vector<std::string>& addresses, const std::function<void()>& otherWay) {
  constexpr int kRounds = 3;
  RealProgram program;
  program.Fill(addresses);
  return RatioOf(
      kRounds, [&] { return program.Check("Online (Ping Response)").clock; },
      [&] { return SecondsOf(otherWay); });
}

}  // namespace

void MeasurePassRow() {
  constexpr int kRounds = 31;
  PrintFigure("pass_row", PassOverBareEchoes(1000, kRounds), 1.3);
}

void MeasurePassGrowth() {
  constexpr int kRounds = 7;
  PassOverBareEchoes(100, kRounds);
  PassOverBareEchoes(1000, kRounds);
  PassOverBareEchoes(10000, kRounds);
}

void MeasurePassAgainstPing() {
  const auto addresses = LoopbackAddresses(200);
  const double ratio = PassOver(addresses, [&] {
    for (const std::string& address : addresses) RunToEnd({"ping", "-c1", address});
  });
  PrintFigure("pass_vs_ping", 1 / ratio, 50, Bound::AtLeast);
}

void MeasurePassAgainstFping() {
  const auto addresses = LoopbackAddresses(1000);
  std::vector<std::string> words = {"fping", "-i1", "-c1", "-t200"};
  words.insert(words.end(), addresses.begin(), addresses.end());
  const double ratio = PassOver(addresses, [&] { RunToEnd(words); });
  PrintFigure("pass_vs_fping", 1 / ratio, 15, Bound::AtLeast);
}

}  // namespace kestrava
