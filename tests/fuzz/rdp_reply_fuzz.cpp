// Takes any bytes for what a peer answers to a Remote Desktop attempt, arriving one by one.
#include <vector>

#include "fuzz/fuzz.h"
#include "platform/net/x224.h"

using namespace kestrava;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto before = ConfirmState::Incomplete;
  for (std::size_t count = 0; count <= size && count <= kLongestConfirm + 1; ++count) {
    // Bytes in a block of their own, so that a look past their end shows.
    const auto judged = JudgeConfirm(std::vector(data, data + count));
    Require(before == ConfirmState::Incomplete || judged == ConfirmState::NotRdp);
    Require(judged != ConfirmState::Incomplete || count < kLongestConfirm);
    Require(judged != ConfirmState::Confirm || (data[3] == count && data[5] == 0xD0));
    before = judged;
  }
  return 0;
}
