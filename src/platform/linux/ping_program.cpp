#include "platform/linux/ping_program.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

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

/// What a program prints, as far as it has come.
class Output {
 public:
  explicit Output(FileDescriptor end) : end_(std::move(end)) {}

  int Descriptor() const { return end_.Number(); }
  bool AtEnd() const { return atEnd_; }
  const std::string& Text() const { return text_; }

  /// Takes what there is, without waiting. More than the longest output isn't wanted.
  void Read() {
    std::array<char, kLongestOutput> buffer;
    const ssize_t size = read(end_.Number(), buffer.data(), buffer.size() - text_.size());
    if (size > 0) text_.append(buffer.data(), static_cast<std::size_t>(size));
    atEnd_ = size == 0 || (size < 0 && errno != EAGAIN && errno != EINTR);
  }

 private:
  FileDescriptor end_;
  std::string text_;
  bool atEnd_ = false;
};

/// A program that was started. It doesn't outlive the object.
class RunningProgram {
 public:
  explicit RunningProgram(pid_t process) : process_(process) {}
  ~RunningProgram() {
    // Does nothing to a program that has ended, and makes sure that the wait for it is short.
    kill(process_, SIGKILL);
    while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
  }
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

 private:
  pid_t process_;
};

std::uint8_t TimeToLiveIn(std::string_view replyLine) {
  constexpr std::string_view kMark = " ttl=";
  std::uint8_t timeToLive = 0;
  if (const auto place = replyLine.find(kMark); place != replyLine.npos) {
    const auto number = replyLine.substr(place + kMark.size());
    std::from_chars(number.data(), number.data() + number.size(), timeToLive);
  }
  return timeToLive;
}

/// The system's own program, not whatever stands ahead of it in the user's PATH.
std::string PingProgram() {
  for (const char* path : {"/usr/bin/ping", "/bin/ping"}) {
    if (access(path, X_OK) == 0) return path;
  }
  return "ping";
}

/// @return the number of the process; nothing if it can't be started.
std::optional<pid_t> StartPing(const EchoRequest& request, milliseconds timeout,
                               const FileDescriptor& output) {
  std::array<char, 32> seconds;
  std::snprintf(seconds.data(), seconds.size(), "%lld.%03lld",
                static_cast<long long>(timeout.count() / 1000),
                static_cast<long long>(timeout.count() % 1000));
  std::string words[] = {PingProgram(),
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
  if (StartProgram(words, output.Number(), environment, process) != 0) return std::nullopt;
  return process;
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

Task<EchoOutcome> SendEchoByPing(EchoRequest request, milliseconds timeout,
                                 DescriptorWaits& waits) {
  const auto deadline = steady_clock::now() + timeout + kStartAndEnd;
  std::array<int, 2> ends;
  if (pipe2(ends.data(), O_CLOEXEC) != 0) co_return EchoOutcome{kEchoNoResources};
  fcntl(ends[0], F_SETFL, O_NONBLOCK);
  Output output{FileDescriptor(ends[0])};
  const auto process = StartPing(request, timeout, FileDescriptor(ends[1]));
  if (!process) co_return EchoOutcome{kEchoGeneralFailure};
  const RunningProgram program(*process);
  for (bool inTime = true; inTime && !output.AtEnd();) {
    inTime = co_await waits.Readable(output.Descriptor(), deadline);
    output.Read();
  }
  const EchoOutcome outcome = ReadPingOutput(request, output.Text());
  const bool silent = !output.AtEnd() && outcome.status == kEchoGeneralFailure;
  co_return silent ? EchoOutcome{kEchoTimedOut} : outcome;
}

}  // namespace kestrava
