#include "probes/connection_probe.h"

#include <cstdint>
#include <string_view>
#include <tuple>

#include "platform/ascii.h"
#include "platform/event_loop.h"
#include "platform/icmp.h"
#include "platform/remote_desktop.h"
#include "platform/runtime_error.h"
#include "probes/echo_status_text.h"
#include "probes/modPing.h"

namespace kestrava {

namespace {

constexpr int kLowestDataSize = 1;
constexpr int kWaitBound = 150000;
constexpr std::int16_t kConnected = 1;
constexpr std::int16_t kNotConnected = 0;

/// The words between the brackets: "11010   [ ip req timed out ]" gives "ip req timed out".
std::string BareStatusText(const std::string& line) {
  const std::size_t open = line.find('[');
  const std::size_t close = line.find(']', open);
  return std::string(WithoutBlanks(std::string_view(line).substr(open + 1, close - open - 1)));
}

/// The Remote Desktop stage of one probe. `result` always holds the answer of that moment, so that
/// an error leaves the right text.
class RemoteDesktopStage {
 public:
  RemoteDesktopStage(MsRdpClient2& rdp, EventLoop& eventLoop, const std::string& address,
                     std::string& result)
      : rdp_(rdp), eventLoop_(eventLoop), address_(address), result_(result) {}

  /// Lets go of whatever connection an earlier probe left behind, however long that takes.
  Task<> DropEarlierConnection() {
    if (rdp_.Connected() == kConnected) rdp_.Disconnect();
    do {
      co_await eventLoop_.PumpEvents();
    } while (rdp_.Connected() == kConnected);
  }

  Task<> Attempt() {
    rdp_.SetServer(address_);
    rdp_.Connect();
    co_await WaitFor(kConnected);
    if (rdp_.Connected() == kConnected) {
      result_ = "3389";
      rdp_.Disconnect();
      co_await WaitFor(kNotConnected);
    } else {
      result_ = "No Response";
    }
  }

 private:
  /// Pumps events until the control reads `state`, within the count that all waits of one probe
  /// share.
  Task<> WaitFor(std::int16_t state) {
    while (waitCount_ < kWaitBound) {
      co_await eventLoop_.PumpEvents();
      if (rdp_.Connected() == state) break;
      ++waitCount_;
    }
  }

  MsRdpClient2& rdp_;
  EventLoop& eventLoop_;
  const std::string& address_;
  std::string& result_;
  int waitCount_ = 0;
};

}  // namespace

Task<std::string> ConnectionProbe::CheckServerConnection(const std::string& connAddress) {
  std::string result;
  RemoteDesktopStage stage(rdp_, eventLoop_, connAddress, result);
  try {
    EchoReply reply{};
    // Its result says less than the reply.
    std::ignore = co_await ping_.SendEchoRequest(connAddress, reply);
    if (reply.DataSize >= kLowestDataSize) co_return std::to_string(reply.DataSize);
    if (reply.RoundTripTime < kRoundTripWithoutReply) co_return std::to_string(reply.RoundTripTime);
    result = BareStatusText(EchoStatusText(reply.Status));
    co_await stage.DropEarlierConnection();
    co_await stage.Attempt();
    co_return result;
  } catch (const RuntimeError& error) {
    if (!error.Is(kErrorPeerDropped)) co_return result;
  }
  // The peer dropped the connection: try once more, within the same count.
  try {
    if (rdp_.Connected() == kConnected) rdp_.Disconnect();
    co_await stage.Attempt();
  } catch (const RuntimeError&) {
    // A further error: the text in hand is the answer.
  }
  co_return result;
}

}  // namespace kestrava
