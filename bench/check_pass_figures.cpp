#include <arpa/inet.h>

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

}  // namespace

void MeasurePassRow() {
  constexpr int kRounds = 15;
  const auto addresses = LoopbackAddresses(1000);
  RealProgram program;
  program.Fill(addresses);
  const double ratio = RatioOf(
      kRounds, [&] { return program.Check("Online (Ping Response)"); },
      [&] {
        return SecondsOf([&] {
          for (const std::string& address : addresses) EchoBarely(inet_addr(address.c_str()));
        });
      });
  PrintFigure("pass_row", ratio, 1.5);
}

void MeasurePassAgainstPing() {
  constexpr int kRounds = 3;
  const auto addresses = LoopbackAddresses(200);
  RealProgram program;
  program.Fill(addresses);
  const double ratio = RatioOf(
      kRounds, [&] { return program.Check("Online (Ping Response)"); },
      [&] {
        return SecondsOf([&] {
          for (const std::string& address : addresses) RunToEnd({"ping", "-c1", address});
        });
      });
  PrintFigure("pass_vs_ping", 1 / ratio, 50, Bound::AtLeast);
}

void MeasureSilentMachine(const std::string& address) {
  constexpr int kRounds = 3;
  RealProgram program;
  program.Fill({address});
  std::vector<double> shares;
  for (int round = 0; round < kRounds; ++round) {
    const Moment start = Moment::Now();
    program.Check("Offline (No Response)");
    const Moment end = Moment::Now();
    shares.push_back(program.Attempts().ProcessorShare());
    std::fprintf(stderr, "  attempt %.3g s, whole pass %.3g s with %.3g s of processor time\n",
                 program.Attempts().AttemptSeconds(), end.clock - start.clock,
                 end.processor - start.processor);
  }
  PrintFigure("silent_cpu", Median(std::move(shares)), 0.03);
}

}  // namespace kestrava
