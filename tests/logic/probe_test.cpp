#include "support/await.h"
#include "support/memory_desktop.h"

namespace kestrava::test {

const std::string kHost = "10.0.0.200";

struct Probing {
  MemoryDesktop desktop;
  MemoryNetwork network{desktop};
  modPing ping{network, network, desktop};
  ConnectionProbe probe{ping, network, desktop};

  template <typename Result>
  Result InTurns(Task<Result> work) {
    return Await(std::move(work), [this] { desktop.Turn(); });
  }
  std::string CheckAddress(const std::string& address) {
    return InTurns(probe.CheckServerConnection(address));
  }
  std::string Check(const Machine& machine) {
    network.At(kHost) = machine;
    return CheckAddress(kHost);
  }
};

struct Probe : testing::Test, Probing {};

TEST_F(Probe, AnswersByTheRecordAlone) {
  const struct {
    Machine machine;
    const char* answer;
    std::size_t attempts;
  } cases[] = {
      {{.dataSize = 9, .roundTripTime = 12, .status = 0}, "9", 0},
      {{.dataSize = 1, .roundTripTime = 10000, .status = 11010}, "1", 0},
      {{.dataSize = 0, .roundTripTime = 9999}, "9999", 0},
      {{.dataSize = -5, .roundTripTime = -7}, "-7", 0},
      {{.roundTripTime = 10000}, "No Response", 1},
      {{.connectsAfter = 150000}, "3389", 1},
      {{.connectsAfter = 150001}, "No Response", 1},
      {{.status = 11003, .connectError = 5}, "ip dest host unreachable", 1},
      {{.status = 7, .connectError = 5}, "unknown  msg returned", 1},
      {{.connectsAfter = 2, .dropsBefore = 1}, "3389", 2},
      {{.connectsAfter = 2, .dropsBefore = 2}, "ip req timed out", 2},
      {{.dataSize = 9, .roundTripTime = 3, .status = 0, .echoTurns = 3}, "9", 0},
      {{.connectsAfter = 2, .echoTurns = 2}, "3389", 1},
  };
  for (const auto& [machine, answer, attempts] : cases) {
    SCOPED_TRACE(answer);
    Probing fresh;
    EXPECT_EQ(fresh.Check(machine), answer);
    EXPECT_EQ(fresh.network.attempts, Texts(attempts, kHost));
  }
}

TEST_F(Probe, BothWaitsShareOneCount) {
  EXPECT_EQ(Check({.connectsAfter = 1000, .lingers = true}), "3389");
  // One turn of the wait for an earlier connection, and one that finds the new one standing.
  EXPECT_EQ(desktop.turns, 150000 + 2);
  EXPECT_EQ(network.disconnects, 1);
}

TEST_F(Probe, SendsOneEchoBetweenTheLayersStartAndItsEnd) {
  EXPECT_EQ(Check(kAnswering), "9");
  EXPECT_EQ(network.calls,
            (Texts{"start 257", "create", "echo Echo This 200 278", "close 77", "cleanup"}));
  EchoReply reply{};
  const std::string silent = "1.2.3.4";
  EXPECT_EQ(InTurns(ping.SendEchoRequest(kHost, reply)), 1);
  EXPECT_EQ(InTurns(ping.SendEchoRequest(silent, reply)), -11010);
}

TEST_F(Probe, ReadsAddressesAsTheirTextSays) {
  const std::pair<const char*, std::int32_t> good[] = {
      {"1.2.3.4", 67305985},
      {"192.168.1.300", 738306240},
      {" 1 .+2. 3.4 ", 67305985},
      {"server", 0},
      {"1.2.3", 0},
      {"2147483647.0.0.-1", -16776961},
  };
  for (const auto& [text, value] : good) EXPECT_EQ(DottedAddressToLong(text), value) << text;

  for (const char* bad :
       {"1.2.3.4.5", "1..2.3", "a.b.c.d", "1.2.3.4x", "+-1.2.3.4", "1.1.1.-2147483649"}) {
    EXPECT_EQ(CheckAddress(bad), "") << bad;
  }
  EXPECT_TRUE(network.calls.empty()) << "a bad address leaves the socket layer untouched";
}

TEST_F(Probe, ComplainsOfTheSocketLayerAndSendsTheEchoAllTheSame) {
  const std::string layer = "Windows Sockets for 32 bit Windows environments";
  const std::tuple<std::uint16_t, std::int16_t, std::string> cases[] = {
      {1, 0, "Windows Sockets Version 1.0 is not supported by " + layer + "."},
      {0xFF01, 0, "Windows Sockets Version 1.0 is not supported by " + layer + "."},
      {2, 0, "This application requires a minimum of 1 supported sockets."}};
  for (const auto& [version, maxSockets, message] : cases) {
    desktop.boxes.clear();
    network.socketVersion = version;
    network.maxSockets = maxSockets;
    EXPECT_EQ(Check(kAnswering), "9");
    EXPECT_EQ(desktop.boxes, std::vector{std::pair(message, MessageIcon::Exclamation)});
  }
}

}  // namespace kestrava::test
