#include "platform/linux/session_bus_probe.h"

#include <array>
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
  if (const std::string path = ValueIn(address, "path"); !path.empty()) return path;
  if (const std::string name = ValueIn(address, "abstract"); !name.empty()) return '\0' + name;
  const char* folder = std::getenv("XDG_RUNTIME_DIR");
  if (!folder || (!address.empty() && ValueIn(address, "runtime") != "yes")) return {};
  return std::string(folder) + "/bus";
}

/// A number of the message format: four bytes, the lowest first.
void AppendNumber(std::string& message, std::size_t number) {
  for (int shift = 0; shift < 32; shift += 8) message += static_cast<char>(number >> shift);
}

/// The login of this user and the call of `Hello`, which every connection begins with.
std::string Greeting() {
  struct Field {
    char code;
    char type;
    std::string_view value;
  };
  std::string fields;
  for (const auto& [code, type, value] :
       {Field{1, 'o', "/org/freedesktop/DBus"}, Field{2, 's', "org.freedesktop.DBus"},
        Field{3, 's', "Hello"}, Field{6, 's', "org.freedesktop.DBus"}}) {
    fields.resize((fields.size() + 7) / 8 * 8);
    fields += {code, 1, type, '\0'};
    AppendNumber(fields, value.size());
    fields += value;
    fields += '\0';
  }
  std::string greeting("\0AUTH EXTERNAL ", 15);
  for (const char digit : std::to_string(geteuid())) {
    greeting += '3';  // the digit's code in hexadecimal digits
    greeting += digit;
  }
  greeting += "\r\nBEGIN\r\n";
  std::string message = {'l', 1, 0, 1};
  AppendNumber(message, 0);  // no body
  AppendNumber(message, 1);  // the first message
  AppendNumber(message, fields.size());
  message += fields;
  message.resize((message.size() + 7) / 8 * 8);
  return greeting + message;
}

}  // namespace

SessionBusProbe::SessionBusProbe(const std::string& addresses) {
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
  const std::string greeting = Greeting();
  const ssize_t sent = send(socket_.Number(), greeting.data(), greeting.size(), MSG_NOSIGNAL);
  if (sent == static_cast<ssize_t>(greeting.size())) state_ = Bus::Asked;
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
    answer_.append(buffer.data(), static_cast<std::size_t>(size));
    const std::size_t login = answer_.find("\r\n");
    if (login == std::string::npos) continue;
    const bool refused = !answer_.starts_with("OK ");
    if (refused || answer_.size() > login + 2) state_ = Bus::Answers;
  }
  return state_;
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
