#pragma once

#include <array>
#include <chrono>
#include <csignal>
#include <netinet/in.h>
#include <string>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "platform/linux/file_descriptor.h"
#include "platform/linux/linux_remote_desktop.h"
#include "support/network_namespace.h"

namespace kestrava::test {

using namespace std::literals;

/// How a peer behaves: it hears the request, says `words` byte by byte with `pause` between (at
/// once for 0), and ends so.
struct Manner {
  enum End { Closes, Resets, Stays };

  int outcome;  ///< what `Connected` reads after the attempt, or the number of its error
  std::string words;
  End end;
  std::chrono::milliseconds pause{0};
};

/// Serves one connection after the other on the peer until the object goes.
class TestServer {
 public:
  explicit TestServer(Manner manner) : manner_(std::move(manner)) {
    OnPeer([this] { listener_ = FileDescriptor(socket(AF_INET, SOCK_STREAM, 0)); });
    const int on = 1;
    setsockopt(listener_.Number(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    const sockaddr_in own{AF_INET, htons(kRemoteDesktopPort), {}, {}};
    EXPECT_EQ(bind(listener_.Number(), reinterpret_cast<const sockaddr*>(&own), sizeof own), 0);
    listen(listener_.Number(), 5);
    thread_ = std::jthread([this] {
      while (const auto peer = FileDescriptor(accept(listener_.Number(), {}, {}))) {
        Serve(peer.Number());
      }
    });
  }
  ~TestServer() { shutdown(listener_.Number(), SHUT_RDWR); }

 private:
  void Serve(int peer) const {
    std::array<char, 64> heard;
    recv(peer, heard.data(), heard.size(), 0);
    const std::size_t step = manner_.pause == 0ms ? manner_.words.size() + 1 : 1;
    for (std::size_t place = 0; place < manner_.words.size(); place += step) {
      std::this_thread::sleep_for(manner_.pause);
      const auto part = manner_.words.substr(place, step);
      if (send(peer, part.data(), part.size(), MSG_NOSIGNAL) < 0) return;
    }
    while (manner_.end == Manner::Stays && recv(peer, heard.data(), heard.size(), 0) > 0) {
    }
    const linger atOnce{manner_.end == Manner::Resets, 0};
    setsockopt(peer, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
  }

  Manner manner_;
  FileDescriptor listener_;
  std::jthread thread_;
};

/// A real xrdp on the peer, with a `/run` of its own, until the object goes.
class RealRemoteDesktopServer {
 public:
  RealRemoteDesktopServer() {
    OnPeer([this] {
      process_ = fork();
      if (process_ != 0) return;
      prctl(PR_SET_PDEATHSIG, SIGKILL);
      execlp("unshare", "unshare", "--mount", "sh", "-c", kCommand, nullptr);
      _exit(127);
    });
  }
  ~RealRemoteDesktopServer() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }

 private:
  static constexpr char kCommand[] =
      "set -e; mount -t tmpfs none /run; cd /run; printf '[Globals]\\nini_version=1\\nfork=false\\n"
      "port=3389\\n[Logging]\\nLogFile=/run/log\\n[Channels]\\n[Xvnc]\\nname=Xvnc\\n"
      "lib=libvnc.so\\n' > xrdp.ini; exec xrdp --nodaemon --config /run/xrdp.ini";

  pid_t process_ = 0;
};

}  // namespace kestrava::test
