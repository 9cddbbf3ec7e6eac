#pragma once

#include "platform/remote_desktop.h"

namespace kestrava::test {

/// A peer's conduct on port 3389, as peer.py takes it, and what an attempt at it comes to.
struct Manner {
  int outcome;  ///< what `Connected` reads after the attempt, or the number of its error
  const char* end;
  const char* words;  ///< in hexadecimal digits
  const char* pause = "0";
};

inline constexpr const char* kConfirm = "030000130ed000001234000201080001000000";

inline constexpr Manner kManners[] = {
    {0, "stays", "5353482d322e302d780d0a"},  // another protocol
    {0, "stays", "0300000b06e00000123400"},  // a request
    {0, "stays", kConfirm, "0.4"},           // not whole in three seconds
    {0, "floods", kConfirm},
    {0, "stays", ""},
    {kErrorPeerDropped, "closes", ""},
    {kErrorPeerDropped, "closes", "030000130ed0000012"},
    {kErrorPeerDropped, "resets", ""},
    {1, "closes", "030000130ed000001234000301080005000000"},  // a negotiation failure
    {1, "stays", "0300000b06d00000123400", "0.005"}};         // a bare confirm

}  // namespace kestrava::test
