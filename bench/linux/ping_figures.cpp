#include <functional>

#include "child_process.h"
#include "figure.h"
#include "figures.h"
#include "loopback_addresses.h"
#include "real_program.h"

namespace kestrava {

namespace {

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
