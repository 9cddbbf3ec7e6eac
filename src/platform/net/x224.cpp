#include "platform/net/x224.h"

namespace kestrava {

namespace {

constexpr std::uint8_t kTpktVersion = 3;
constexpr std::uint8_t kConnectionConfirm = 0xD0;
constexpr std::uint8_t kNegotiationResponse = 2;
constexpr std::uint8_t kNegotiationFailure = 3;
constexpr std::uint8_t kNegotiationSize = 8;
constexpr std::uint8_t kBareConfirm = kLongestConfirm - kNegotiationSize;

/// Whether the byte at `offset` may stand there, given the ones before it.
bool Fits(std::span<const std::uint8_t> bytes, std::size_t offset) {
  const std::uint8_t byte = bytes[offset];
  switch (offset) {
    case 0:
      return byte == kTpktVersion;
    case 2:  // the high byte of the TPKT length
      return byte == 0;
    case 3:
      return byte == kBareConfirm || byte == kLongestConfirm;
    case 4:  // the X.224 length leaves out the TPKT header and itself
      return byte + 5 == bytes[3];
    case 5:
      return byte == kConnectionConfirm;
    case 10:  // the class
      return byte == 0;
    case 11:
      return byte == kNegotiationResponse || byte == kNegotiationFailure;
    case 13:
      return byte == kNegotiationSize;
    case 14:  // the high byte of the negotiation data's length
      return byte == 0;
    default:  // reserved, references, flags, and what was negotiated
      return true;
  }
}

}  // namespace

ConfirmState JudgeConfirm(std::span<const std::uint8_t> bytes) {
  std::size_t length = kLongestConfirm;
  for (std::size_t offset = 0; offset < bytes.size(); ++offset) {
    if (offset == length || !Fits(bytes, offset)) return ConfirmState::NotRdp;
    if (offset == 3) length = bytes[offset];
  }
  return bytes.size() == length ? ConfirmState::Confirm : ConfirmState::Incomplete;
}

}  // namespace kestrava
