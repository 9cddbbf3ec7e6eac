#pragma once

#include <chrono>
#include <string_view>

#include "platform/linux/descriptor_waits.h"
#include "platform/linux/echo_packet.h"
#include "platform/task.h"

namespace kestrava {

/// The longest payload that `ping` can be told, in bytes (ping(8), option -p).
inline constexpr std::size_t kLongestPingPayload = 16;

/// Lets the system's `ping` program, which may do what this program may not, send the echo. The
/// identifier and the sequence number are its own. Ends within `timeout` and 200 ms more. The
/// program goes with the task.
/// @return `kEchoGeneralFailure` if there is no such program or it says nothing that is understood.
Task<EchoOutcome> SendEchoByPing(EchoRequest request, std::chrono::milliseconds timeout,
                                 DescriptorWaits& waits);

/// Reads what `ping` (iputils) prints about one echo in the C locale.
EchoOutcome ReadPingOutput(const EchoRequest& request, std::string_view output);

}  // namespace kestrava
