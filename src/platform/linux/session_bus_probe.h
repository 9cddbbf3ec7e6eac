#pragma once

#include <chrono>
#include <cstddef>
#include <span>
#include <string>

#include "platform/linux/file_descriptor.h"

namespace kestrava {

/// Asks a D-Bus message bus, and services on it, for a sign of life, by a connection of its own: it
/// logs in, says hello and pings, as the D-Bus document of freedesktop.org has it. Nothing
/// here waits but `AnswersIn`.
class SessionBusProbe {
 public:
  /// @param addresses of the bus as in DBUS_SESSION_BUS_ADDRESS: the first that can be reached
  ///   counts. Empty stands for the usual place below $XDG_RUNTIME_DIR.
  /// @param services the names of those that are to answer, too. One that isn't there needn't.
  explicit SessionBusProbe(const std::string& addresses,
                           std::span<const char* const> services = {});

  enum class Bus {
    Asked,     ///< and silent so far, or one of the services is
    Answers,   ///< it is alive, and the services are
    NotAsked,  ///< there is none, or only one that can't be reached by a Unix socket
    Full,  ///< it takes no more connections, so it is silent, and nothing will tell of its answer
  };
  Bus State() const { return state_; }

  /// Takes in what the bus has sent by now.
  Bus Read();
  /// The same, after waiting for it.
  Bus AnswersIn(std::chrono::milliseconds patience);

  /// Readable when there is something for `Read`.
  int Descriptor() const { return socket_.Number(); }

 private:
  bool Ask(const std::string& path);
  void TakeAnswers();

  std::string question_;
  std::size_t answersDue_;
  FileDescriptor socket_;
  bool loggedIn_ = false;
  std::string received_;  ///< and not taken yet
  Bus state_ = Bus::NotAsked;
};

}  // namespace kestrava
