// Takes any bytes for an IPv4 packet that may answer an echo or tell of its failure.
#include "fuzz/fuzz.h"
#include "platform/linux/echo_packet.h"
#include "probes/echo_status_text.h"

using namespace kestrava;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto packet = OpenIpv4Packet({data, size});
  if (!packet || packet->message.size() < 8) return 0;
  const auto message = packet->message;
  const auto word = [&](std::size_t place) {
    return static_cast<std::uint16_t>(message[place] << 8 | message[place + 1]);
  };
  std::uint32_t sum = message.size() % 2 * 0x100U * message.back();
  for (std::size_t place = 0; place + 1 < message.size(); place += 2) sum += word(place);
  const std::string payload(message.begin() + 8, message.end());
  EchoRequest request{1, word(4), word(6), payload};
  // Modulo 2^16 - 1, where only a message of zeros alone adds up to a true 0.
  Require(IsReplyTo(request, 1, message) == (word(0) == 0 && sum != 0 && sum % 0xFFFF == 0));
  Require(IsErrorAbout(request, 1, message) == (word(0) == 0x800));
  Require(!IsReplyTo(request, 2, message) && !IsErrorAbout(request, 2, message));
  if (data[1] % 2 == 0) {
    ++request.sequence;
  } else {
    ++*request.identifier;
  }
  Require(!IsReplyTo(request, 1, message) && !IsErrorAbout(request, 1, message));
  const auto status = StatusOfIcmpError(message[0], message[1]);
  Require(!status || EchoStatusText(*status).find("unknown") == std::string::npos);
  return 0;
}
