#include "platform/linux/ping_program.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <sys/wait.h>

#include "platform/linux/child_program.h"
#include "platform/linux/file_descriptor.h"

namespace kestrava {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kStartAndEnd{200};
constexpr std::size_t kLongestOutput = 4096;

struct Phrase {
  std::string_view text;
  EchoStatus status;
};

/// What ping of iputils 20221126 (ping_common.c, ping.c) prints for ICMP errors, and its error
/// messages with the words of the C library's strerror(3). The first phrase found counts.
constexpr Phrase kPhrases[] = {
    {"Destination Net ", kEchoNetUnreachable},
    {"Destination Host ", kEchoHostUnreachable},
    {"Packet filtered", kEchoHostUnreachable},
    {"Destination Protocol Unreachable", kEchoProtocolUnreachable},
    {"Destination Port Unreachable", kEchoPortUnreachable},
    {"Frag needed and DF set", kEchoPacketTooBig},
    {"Time to live exceeded", kEchoTtlExpiredTransit},
    {"Frag reassembly time exceeded", kEchoTtlExpiredReassembly},
    {"Parameter problem", kEchoParameterProblem},
    {"Network is unreachable", kEchoNetUnreachable},
    {"No route to host", kEchoHostUnreachable},
    {"essage too long", kEchoPacketTooBig},
    {"No buffer space available", kEchoNoResources},
    {"Cannot allocate memory", kEchoNoResources},
    {"want to ping broadcast", kEchoBadDestination},
    {" packets transmitted", kEchoTimedOut},
};

std::string DottedText(std::uint32_t address) {
  std::array<char, INET_ADDRSTRLEN> text;
  inet_ntop(AF_INET, &address, text.data(), text.size());
  return text.data();
}

std::string Hexadecimal(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (const char byte : bytes) {
    text += kDigits[static_cast<unsigned char>(byte) >> 4];
    text += kDigits[byte & 0x0F];
  }
  return text;
}

/// Reads up to the end, the longest output or `deadline`, whichever comes first.
/// @return whether the end was reached.
bool ReadToEnd(int input, steady_clock::time_point deadline, std::string& output) {
  while (output.size() < kLongestOutput) {
    const auto rest = std::chrono::ceil<milliseconds>(deadline - steady_clock::now());
    if (rest <= milliseconds::zero()) return false;
    pollfd watched{input, POLLIN, 0};
    if (poll(&watched, 1, static_cast<int>(rest.count())) <= 0) continue;
    std::array<char, 1024> buffer;
    const ssize_t size = read(input, buffer.data(), buffer.size());
    if (size == 0) return true;
    if (size > 0) output.append(buffer.data(), static_cast<std::size_t>(size));
  }
  return false;
}

std::uint8_t TimeToLiveIn(std::string_view replyLine) {
  constexpr std::string_view kMark = " ttl=";
  std::uint8_t timeToLive = 0;
  if (const auto place = replyLine.find(kMark); place != replyLine.npos) {
    const auto number = replyLine.substr(place + kMark.size());
    std::from_chars(number.data(), number.data() + number.size(), timeToLive);
  }
  return timeToLive;
}

}  // namespace

EchoOutcome ReadPingOutput(const EchoRequest& request, std::string_view output) {
  constexpr std::size_t kIcmpHeaderSize = 8;
  const std::string reply = '\n' + std::to_string(request.payload.size() + kIcmpHeaderSize) +
                            " bytes from " + DottedText(request.address) + ": icmp_seq=1 ";
  const auto place = output.find(reply);
  if (place != output.npos && output.find("wrong data byte") == output.npos) {
    const auto line = output.substr(place + 1);
    return {kEchoSuccess, TimeToLiveIn(line.substr(0, line.find('\n')))};
  }
  for (const Phrase& phrase : kPhrases) {
    if (output.find(phrase.text) != output.npos) return {phrase.status};
  }
  return {kEchoGeneralFailure};
}

EchoOutcome SendEchoByPing(const EchoRequest& request, milliseconds timeout) {
  const auto deadline = steady_clock::now() + timeout + kStartAndEnd;
  std::array<int, 2> ends;
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return {kEchoNoResources};
  const FileDescriptor input(ends[0]);
  FileDescriptor output(ends[1]);

  std::array<char, 32> seconds;
  std::snprintf(seconds.data(), seconds.size(), "%lld.%03lld",
                static_cast<long long>(timeout.count() / 1000),
                static_cast<long long>(timeout.count() % 1000));
  std::string words[] = {"ping",
                         "-n",
                         "-c",
                         "1",
                         "-W",
                         seconds.data(),
                         "-s",
                         std::to_string(request.payload.size()),
                         "-p",
                         Hexadecimal(request.payload),
                         DottedText(request.address)};
  std::string locale = "LC_ALL=C";
  char* const environment[] = {locale.data(), nullptr};
  pid_t process = 0;
  const int error = StartProgram(words, output.Number(), environment, process);
  output.Close();
  if (error != 0) return {kEchoGeneralFailure};

  std::string text;
  const bool ended = ReadToEnd(input.Number(), deadline, text);
  // Does nothing to a program that has ended, and makes sure that the wait for it is short.
  kill(process, SIGKILL);
  while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
  }
  const EchoOutcome outcome = ReadPingOutput(request, text);
  return !ended && outcome.status == kEchoGeneralFailure ? EchoOutcome{kEchoTimedOut} : outcome;
}

}  // namespace kestrava
