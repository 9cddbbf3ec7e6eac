#include "probes/socket_layer.h"

#include <string>

#include "platform/message_box.h"
#include "platform/windows_sockets.h"

namespace kestrava {

namespace {

constexpr std::uint16_t kVersion = 0x101;
constexpr int kLowestMajor = 1;
constexpr int kLowestMinor = 1;
constexpr int kFewestSockets = 1;

}  // namespace

int WordHighByte(std::int16_t word) { return (word / 256) & 0xFF; }

int WordLowByte(std::int16_t word) { return word & 0xFF; }

Task<bool> SocketLayer::OpenSocketLayer() {
  WSADATA data{};
  if (sockets_.WSAStartup(kVersion, data) != 0) {
    return Complain(
        "Windows Sockets for 32 bit Windows environments is not successfully responding.",
        MessageIcon::None);
  }
  const auto version = static_cast<std::int16_t>(data.wVersion);
  const int major = WordLowByte(version);
  const int minor = WordHighByte(version);
  if (major < kLowestMajor || (major == kLowestMajor && minor < kLowestMinor)) {
    return Complain("Windows Sockets Version " + std::to_string(major) + "." +
                        std::to_string(minor) +
                        " is not supported by Windows Sockets for 32 bit Windows environments.",
                    MessageIcon::Exclamation);
  }
  if (data.iMaxSockets < kFewestSockets) {
    return Complain("This application requires a minimum of " + std::to_string(kFewestSockets) +
                        " supported sockets.",
                    MessageIcon::Exclamation);
  }
  return true;
}

Task<bool> SocketLayer::CloseSocketLayer() {
  const int result = sockets_.WSACleanup();
  if (result == 0) return true;
  return Complain("Windows Sockets error " + std::to_string(result) + " occurred in Cleanup.",
                  MessageIcon::Exclamation);
}

Task<bool> SocketLayer::Complain(std::string text, MessageIcon icon) {
  co_await AwaitedMsgBox(messageBoxes_, text, icon);
  co_return false;
}

}  // namespace kestrava
