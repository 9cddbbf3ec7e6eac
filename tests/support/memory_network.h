#pragma once

#include <array>
#include <bit>

#include "platform/icmp.h"
#include "platform/remote_desktop.h"
#include "platform/windows_sockets.h"
#include "support/memory_files.h"
#include "support/memory_windows.h"

namespace kestrava::test {

/// How one machine behaves.
struct Machine {
  std::int16_t dataSize = 0;
  std::int32_t roundTripTime = kRoundTripWithoutReply;
  std::int32_t status = kEchoTimedOut;
  int connectsAfter = -1;  ///< turns until a Remote Desktop connect stands; -1 for never
  int dropsBefore = 0;     ///< attempts that end in the error of a dropped connection
  int connectError = 0;    ///< number of the error that `Connect` raises, 0 for none
  bool lingers = false;    ///< a dropped connection stays up until the count is used up
  int echoTurns = 0;       ///< turns until the echo has come to its end
};

inline constexpr Machine kAnswering{.dataSize = 9, .roundTripTime = 1, .status = 0};

/// A scripted network: the echo service, the socket layer and the Remote Desktop control.
class MemoryNetwork : public Faulty,
                      public IcmpService,
                      public WindowsSockets,
                      public MsRdpClient2 {
 public:
  explicit MemoryNetwork(MemoryDesktop& desktop) : desktop_(desktop) {}

  IcmpHandle IcmpCreateFile() override {
    calls.push_back("create");
    return Fails("IcmpCreateFile") ? kNoHandle : 77;
  }
  static std::string Dotted(std::int32_t address) {
    const auto bytes = std::bit_cast<std::array<unsigned char, 4>>(address);
    std::string text = std::to_string(bytes[0]);
    for (const std::size_t index : {1U, 2U, 3U}) text += "." + std::to_string(bytes[index]);
    return text;
  }
  Task<std::uint32_t> IcmpSendEcho(IcmpHandle handle, std::int32_t address, std::string_view data,
                                   const IP_OPTION_INFORMATION* options, EchoReply& reply,
                                   std::uint32_t replySize, std::uint32_t timeout) override {
    calls.push_back("echo " + std::string(data) + " " + std::to_string(timeout) + " " +
                    std::to_string(replySize) + (options ? " options" : ""));
    if (onEcho) onEcho();
    const bool fails = Fails("IcmpSendEcho") || handle == kNoHandle;
    const Machine machine = fails ? Machine{.status = 11050} : At(Dotted(address));
    for (int turn = 0; turn < machine.echoTurns; ++turn) co_await desktop_.PumpEvents();
    reply.DataSize = machine.dataSize;
    reply.RoundTripTime = machine.roundTripTime;
    reply.Status = machine.status;
    co_return machine.dataSize > 0 ? 1 : 0;
  }
  bool IcmpCloseHandle(IcmpHandle handle) override {
    calls.push_back("close " + std::to_string(handle));
    return !Fails("IcmpCloseHandle");
  }

  int WSAStartup(std::uint16_t version, WSADATA& data) override {
    calls.push_back("start " + std::to_string(version));
    data.wVersion = socketVersion;
    data.iMaxSockets = maxSockets;
    return Fails("WSAStartup") ? 1 : 0;
  }
  int WSACleanup() override {
    calls.push_back("cleanup");
    return Fails("WSACleanup") ? -1 : 0;
  }

  std::int16_t Connected() override {
    MayRaise("Connected");
    if (std::exchange(dropPending_, false)) {
      state_ = 0;
      throw RuntimeError(kErrorPeerDropped, "the peer dropped the connection");
    }
    if (state_ == 2 && desktop_.turns >= connectTurn_) state_ = 1;
    if (state_ == 3 && !lingers_) state_ = 0;
    return state_;
  }
  void SetServer(const std::string& server) override {
    MayRaise("SetServer");
    server_ = server;
  }
  void Connect() override {
    MayRaise("Connect");
    Machine& machine = At(server_);
    attempts.push_back(server_);
    if (machine.connectError != 0)
      throw RuntimeError(ErrorNumber{machine.connectError}, "refused to connect");
    dropPending_ = machine.dropsBefore > 0 && machine.dropsBefore-- > 0;
    state_ = machine.connectsAfter < 0 ? 0 : 2;
    lingers_ = machine.lingers;
    connectTurn_ = desktop_.turns + machine.connectsAfter;
  }
  void Disconnect() override {
    MayRaise("Disconnect");
    ++disconnects;
    state_ = 3;
  }

  Machine& At(const std::string& address) { return machines[address]; }

  std::map<std::string, Machine> machines;  ///< by dotted address; one not named here is silent
  Texts calls;                              ///< of the echo service and the socket layer, in order
  Texts attempts;                           ///< servers that `Connect` was asked for
  int disconnects = 0;
  Act onEcho;
  std::uint16_t socketVersion = 0x101;
  std::int16_t maxSockets = 1024;

 private:
  static constexpr IcmpHandle kNoHandle = -1;

  MemoryDesktop& desktop_;
  std::string server_;
  std::int16_t state_ = 0;  // 3 stands for a connection that is being dropped
  long connectTurn_ = 0;
  bool dropPending_ = false;
  bool lingers_ = false;
};

}  // namespace kestrava::test
