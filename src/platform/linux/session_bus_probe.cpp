#include "platform/linux/session_bus_probe.h"

#include <array>
#include <bit>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>

namespace kestrava {

namespace {

/// The value of `key` in one address, "unix:key=value,...", or nothing. A byte may be written
/// "%xx".
std::string ValueIn(std::string_view address, std::string_view key) {
  constexpr std::string_view kTransport = "unix:";
  if (!address.starts_with(kTransport)) return {};
  address.remove_prefix(kTransport.size());
  while (!address.empty()) {
    const std::string_view pair = address.substr(0, address.find(','));
    address.remove_prefix(std::min(address.size(), pair.size() + 1));
    const std::size_t equals = pair.find('=');
    if (pair.substr(0, equals) != key || equals == std::string_view::npos) continue;
    std::string value;
    for (std::size_t at = equals + 1; at < pair.size(); ++at) {
      unsigned char byte = static_cast<unsigned char>(pair[at]);
      if (pair[at] == '%' && at + 2 < pair.size()) {
        std::from_chars(&pair[at + 1], &pair[at + 1] + 2, byte, 16);
        at += 2;
      }
      value += static_cast<char>(byte);
    }
    return value;
  }
  return {};
}

/// A socket's path as the system takes it, an abstract one with a NUL in front; or nothing.
std::string PathIn(std::string_view address) {
  if (std::string path = ValueIn(address, "path"); !path.empty()) return path;
  if (const std::string name = ValueIn(address, "abstract"); !name.empty()) return '\0' + name;
  const char* folder = std::getenv("XDG_RUNTIME_DIR");
  if (!folder || (!address.empty() && ValueIn(address, "runtime") != "yes")) return {};
  return std::string(folder) + "/bus";
}

/// A number of the message format, in this machine's order of bytes.
void AppendNumber(std::string& message, std::size_t number) {
  const auto value = static_cast<std::uint32_t>(number);
  message.append(reinterpret_cast<const char*>(&value), sizeof value);
}
std::size_t NumberAt(std::string_view message, std::size_t place) {
  std::uint32_t value = 0;
  std::memcpy(&value, &message[place], sizeof value);
  return value;
}
std::size_t Aligned(std::size_t size) { return (size + 7) / 8 * 8; }

constexpr char kByteOrder = std::endian::native == std::endian::little ? 'l' : 'B';
constexpr char kMethodCall = 1;
constexpr char kSignal = 4;
constexpr char kNoAutoStart = 2;
constexpr std::size_t kFixedHeader = 16;
constexpr std::size_t kLongestAnswer = 65536;

constexpr const char* kBus = "org.freedesktop.DBus";

/// The call of a method without arguments.
std::string Call(std::size_t serial, const char* service, const char* interface,
                 const char* method) {
  struct Field {
    char code;
    char type;
    std::string_view value;
  };
  std::string fields;
  for (const auto& [code, type, value] :
       {Field{1, 'o', "/org/freedesktop/DBus"}, Field{2, 's', interface}, Field{3, 's', method},
        Field{6, 's', service}}) {
    fields.resize(Aligned(fields.size()));
    fields += {code, 1, type, '\0'};
    AppendNumber(fields, value.size());
    fields += value;
    fields += '\0';
  }
  std::string message = {kByteOrder, kMethodCall, kNoAutoStart, 1};
  AppendNumber(message, 0);  // no body
  AppendNumber(message, serial);
  AppendNumber(message, fields.size());
  message += fields;
  message.resize(Aligned(message.size()));
  return message;
}

/// The login of this user.
std::string Login() {
  std::string login("\0AUTH EXTERNAL ", 15);
  for (const char digit : std::to_string(geteuid())) {
    login += '3';  // the digit's code in hexadecimal digits
    login += digit;
  }
  return login + "\r\nBEGIN\r\n";
}

}  // namespace

SessionBusProbe::SessionBusProbe(const std::string& addresses,
                                 std::span<const char* const> services)
    : question_(Login() + Call(1, kBus, kBus, "Hello")), answersDue_(1 + services.size()) {
  std::size_t serial = 1;
  for (const char* service : services) {
    question_ += Call(++serial, service, "org.freedesktop.DBus.Peer", "Ping");
  }
  for (std::string_view left = addresses;;) {
    const std::string_view address = left.substr(0, left.find(';'));
    // Where no Unix socket is named, the toolkit has to find out for itself.
    const std::string path = PathIn(address);
    if (path.empty() || Ask(path)) return;
    if (address.size() == left.size()) return;
    left.remove_prefix(address.size() + 1);
  }
}

bool SessionBusProbe::Ask(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) return false;
  std::memcpy(address.sun_path, path.data(), path.size());
  const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size() +
                                           (path.front() == '\0' ? 0 : 1));
  socket_ = FileDescriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  if (connect(socket_.Number(), reinterpret_cast<const sockaddr*>(&address), size) != 0) {
    if (errno != EAGAIN) return false;
    state_ = Bus::Full;
    return true;
  }
  const ssize_t sent = send(socket_.Number(), question_.data(), question_.size(), MSG_NOSIGNAL);
  if (sent == static_cast<ssize_t>(question_.size())) state_ = Bus::Asked;
  return true;
}

SessionBusProbe::Bus SessionBusProbe::Read() {
  std::array<char, 512> buffer;
  while (state_ == Bus::Asked) {
    const ssize_t size = recv(socket_.Number(), buffer.data(), buffer.size(), 0);
    if (size < 0 && errno == EINTR) continue;
    if (size < 0 && errno == EAGAIN) break;
    if (size <= 0) {
      // It has hung up, and so it will on the toolkit.
      state_ = Bus::NotAsked;
      break;
    }
    received_.append(buffer.data(), static_cast<std::size_t>(size));
    TakeAnswers();
    // Whoever sends more than a bus does is none.
    if (received_.size() > kLongestAnswer) state_ = Bus::NotAsked;
  }
  return state_;
}

void SessionBusProbe::TakeAnswers() {
  if (!loggedIn_) {
    const std::size_t end = received_.find("\r\n");
    if (end == std::string::npos) return;
    // A bus that refuses this user is alive.
    if (!received_.starts_with("OK ")) state_ = Bus::Answers;
    loggedIn_ = true;
    received_.erase(0, end + 2);
  }
  while (state_ == Bus::Asked && received_.size() >= kFixedHeader) {
    const std::size_t size =
        kFixedHeader + Aligned(NumberAt(received_, 12)) + NumberAt(received_, 4);
    if (received_.size() < size) return;
    if (received_[1] != kSignal && --answersDue_ == 0) state_ = Bus::Answers;
    received_.erase(0, size);
  }
}

SessionBusProbe::Bus SessionBusProbe::AnswersIn(std::chrono::milliseconds patience) {
  using std::chrono::milliseconds;
  using std::chrono::steady_clock;
  const auto end = steady_clock::now() + patience;
  while (Read() == Bus::Asked) {
    const auto left = std::chrono::ceil<milliseconds>(end - steady_clock::now());
    if (left <= milliseconds::zero()) break;
    pollfd answer{.fd = socket_.Number(), .events = POLLIN, .revents = 0};
    poll(&answer, 1, static_cast<int>(left.count()));
  }
  return state_;
}

}  // namespace kestrava
