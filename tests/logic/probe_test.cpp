#include <gtest/gtest.h>

#include "support/memory_desktop.h"

namespace kestrava::test {
namespace {

constexpr const char* kHost = "10.0.0.200";

struct Probing {
  MemoryDesktop desktop;
  MemoryNetwork network{desktop};
  modPing ping{network, network, desktop};
  ConnectionProbe probe{ping, network, desktop};

  std::string Check(const Machine& machine) {
    network.At(kHost) = machine;
    return probe.CheckServerConnection(kHost);
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

TEST_F(Probe, LeavesEveryWaitWhenTheProgramEnds) {
  for (const int endTurn : {1, 2, 500}) {
    desktop.ended = false;
    desktop.turns = 0;
    desktop.onTurn = [&] { desktop.ended = desktop.turns >= endTurn; };
    EXPECT_EQ(Check({.connectsAfter = 1000}), "ip req timed out");
    EXPECT_EQ(desktop.turns, endTurn);
  }
}

TEST_F(Probe, SendsOneEchoBetweenTheLayersStartAndItsEnd) {
  EXPECT_EQ(Check(kAnswering), "9");
  EXPECT_EQ(network.calls,
            (Texts{"start 257", "create", "echo Echo This 200 278", "close 77", "cleanup"}));
  EchoReply reply{};
  EXPECT_EQ(ping.SendEchoRequest(kHost, reply), 1);
  EXPECT_EQ(ping.SendEchoRequest("1.2.3.4", reply), -11010);
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

  const std::pair<const char*, int> bad[] = {
      {"1.2.3.4.5", kErrorIndexOutOfRange}, {"1..2.3", kErrorTypeMismatch},
      {"a.b.c.d", kErrorTypeMismatch},      {"1.2.3.4x", kErrorTypeMismatch},
      {"+-1.2.3.4", kErrorTypeMismatch},    {"1.1.1.-2147483649", kErrorOverflow},
  };
  for (const auto& [text, number] : bad) {
    try {
      DottedAddressToLong(text);
      ADD_FAILURE() << text << " was read";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), number) << text;
    }
    EXPECT_EQ(probe.CheckServerConnection(text), "") << text;
  }
  EXPECT_TRUE(network.calls.empty()) << "a bad address leaves the socket layer untouched";
}

TEST_F(Probe, ComplainsOfTheSocketLayerAndSendsTheEchoAllTheSame) {
  const std::string layer = "Windows Sockets for 32 bit Windows environments";
  const struct {
    int startResult;
    std::uint16_t version;
    std::int16_t maxSockets;
    int cleanupResult;
    std::string message;
    MessageIcon icon = MessageIcon::Exclamation;
  } cases[] = {
      {1, 0, 0, 0, layer + " is not successfully responding.", MessageIcon::None},
      {0, 1, 0, 0, "Windows Sockets Version 1.0 is not supported by " + layer + "."},
      {0, 0xFF01, 0, 0, "Windows Sockets Version 1.0 is not supported by " + layer + "."},
      {0, 2, 0, 0, "This application requires a minimum of 1 supported sockets."},
      {0, 2, 1, -1, "Windows Sockets error -1 occurred in Cleanup."},
  };
  for (const auto& expected : cases) {
    desktop.boxes.clear();
    network.startResult = expected.startResult;
    network.socketVersion = expected.version;
    network.maxSockets = expected.maxSockets;
    network.cleanupResult = expected.cleanupResult;
    EXPECT_EQ(Check(kAnswering), "9");
    EXPECT_EQ(desktop.boxes, std::vector{std::pair(expected.message, expected.icon)});
  }
}

}  // namespace
}  // namespace kestrava::test
