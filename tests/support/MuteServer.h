#pragma once

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace zntopo::test {

/// A server on a port of 127.0.0.1 that takes connections and never says a word. Throws
/// std::runtime_error if it can't listen.
class MuteServer {
 public:
  MuteServer() : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* const any = reinterpret_cast<sockaddr*>(&address);
    socklen_t size = sizeof address;
    if (bind(socket_, any, size) != 0 || listen(socket_, 8) != 0 ||
        getsockname(socket_, any, &size) != 0) {
      throw std::runtime_error("can't listen on 127.0.0.1");
    }
    port_ = ntohs(address.sin_port);
  }
  ~MuteServer() { close(socket_); }
  MuteServer(const MuteServer&) = delete;
  MuteServer& operator=(const MuteServer&) = delete;

  int port() const { return port_; }
  /// Waits until somebody has connected; false if nobody does within a minute.
  bool awaitCaller() const {
    pollfd waiting = {socket_, POLLIN, 0};
    constexpr int minute = 60'000;
    return poll(&waiting, 1, minute) == 1;
  }

 private:
  int socket_;
  int port_ = 0;
};

}  // namespace zntopo::test
