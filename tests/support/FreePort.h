#pragma once

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace zntopo::test {

/// A port of 127.0.0.1 that nobody listens on. Throws std::runtime_error if there is none.
inline int freePort() {
  const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  auto* const any = reinterpret_cast<sockaddr*>(&address);
  socklen_t size = sizeof address;
  const bool isBound = bind(descriptor, any, size) == 0 && getsockname(descriptor, any, &size) == 0;
  close(descriptor);
  if (!isBound) throw std::runtime_error("there is no free port");
  return ntohs(address.sin_port);
}

/// True if somebody takes connections on a port of 127.0.0.1.
inline bool isTaken(int port) {
  const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<unsigned short>(port));
  const bool isOpen =
      connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  close(descriptor);
  return isOpen;
}

}  // namespace zntopo::test
