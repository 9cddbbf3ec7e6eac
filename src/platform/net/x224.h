#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace kestrava {

/// The X.224 Connection Request that opens a Remote Desktop connection, in its TPKT wrapping, with
/// a negotiation request for TLS or CredSSP ([MS-RDPBCGR] 2.2.1.1 and 2.2.1.1.1). A server that
/// insists on either still answers it, and one that knows neither leaves its answer's data away.
inline constexpr std::array<std::uint8_t, 19> kConnectionRequest = {
    3,    0,    0, 19,           // TPKT: version, reserved, length
    14,   0xE0, 0, 0,  0, 0, 0,  // X.224: length after this byte, CR, references, class 0
    1,    0,    8, 0,            // negotiation request: type, flags, length
    0x03, 0,    0, 0};           // TLS or CredSSP

/// The longest Connection Confirm, in bytes.
inline constexpr std::size_t kLongestConfirm = 19;

enum class ConfirmState {
  Incomplete,  ///< nothing wrong so far
  Confirm,     ///< exactly one well-formed confirm
  NotRdp,      ///< no continuation can make it a confirm
};

/// Judges all the bytes that a peer has sent so far in answer to the request: a Connection Confirm
/// ([MS-RDPBCGR] 2.2.1.2) without negotiation data, or with a negotiation response or failure. A
/// server sends nothing after its confirm before it is spoken to again.
ConfirmState JudgeConfirm(std::span<const std::uint8_t> bytes);

}  // namespace kestrava
