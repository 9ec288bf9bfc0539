#include "tests/support/CuttingProxy.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

#include "tests/support/FreePort.h"

namespace zntopo::test {
namespace {

constexpr long kNever = std::numeric_limits<long>::max();

bool sendAll(int descriptor, const char* bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t sent = send(descriptor, bytes, size, MSG_NOSIGNAL);
    if (sent <= 0) return false;
    bytes += sent;
    size -= static_cast<std::size_t>(sent);
  }
  return true;
}

}  // namespace

CuttingProxy::CuttingProxy(const std::filesystem::path& listened,
                           const std::filesystem::path& server)
    : server_(unixAddress(server)), limit_(kNever) {
  listenOn(unixAddress(listened));
}

CuttingProxy::CuttingProxy(int serverPort)
    : server_(localAddress(serverPort)), port_(freePort()), limit_(kNever) {
  listenOn(localAddress(port_));
}

CuttingProxy::Address CuttingProxy::unixAddress(const std::filesystem::path& path) {
  Address address{.size = sizeof(sockaddr_un)};
  auto& parts = reinterpret_cast<sockaddr_un&>(address.storage);
  parts.sun_family = AF_UNIX;
  std::strncpy(parts.sun_path, path.c_str(), sizeof parts.sun_path - 1);
  return address;
}

CuttingProxy::Address CuttingProxy::localAddress(int port) {
  Address address{.size = sizeof(sockaddr_in)};
  auto& parts = reinterpret_cast<sockaddr_in&>(address.storage);
  parts.sin_family = AF_INET;
  parts.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  parts.sin_port = htons(static_cast<unsigned short>(port));
  return address;
}

int CuttingProxy::Address::connect() const {
  const int descriptor = makeSocket();
  if (::connect(descriptor, get(), size) == 0) return descriptor;
  close(descriptor);
  return -1;
}

void CuttingProxy::listenOn(const Address& address) {
  listener_ = address.makeSocket();
  if (bind(listener_, address.get(), address.size) != 0 || listen(listener_, 16) != 0 ||
      pipe(wake_) != 0) {
    throw std::runtime_error("can't listen for a server");
  }
  thread_ = std::thread([this] { run(); });
}

CuttingProxy::~CuttingProxy() {
  close(std::exchange(wake_[1], -1));
  thread_.join();
  close(wake_[0]);
  close(listener_);
}

void CuttingProxy::cutAfter(long bytes) {
  bytes_ = 0;
  limit_ = bytes;
}

void CuttingProxy::mend() { cutAfter(kNever); }

bool CuttingProxy::handOn(int from, int to, bool isFromServer) {
  char buffer[4096];
  const ssize_t got = recv(from, buffer, sizeof buffer, 0);
  if (got <= 0) return false;
  auto size = static_cast<long>(got);
  if (isFromServer) {
    size = std::min(size, std::max(limit_ - bytes_, 0L));
    bytes_ += size;
  }
  return sendAll(to, buffer, static_cast<std::size_t>(size)) && bytes_ < limit_;
}

void CuttingProxy::run() {
  std::vector<std::pair<int, int>> wires;  // client and server
  for (;;) {
    std::vector<pollfd> waiting = {{wake_[0], POLLIN, 0}, {listener_, POLLIN, 0}};
    for (const auto& [client, server] : wires) {
      waiting.push_back({client, POLLIN, 0});
      waiting.push_back({server, POLLIN, 0});
    }
    if (poll(waiting.data(), waiting.size(), -1) < 0) continue;
    bool isCut = bytes_ >= limit_;
    std::vector<std::pair<int, int>> kept;
    for (std::size_t i = 0; i < wires.size(); ++i) {
      const auto [client, server] = wires[i];
      bool isUp = !isCut;
      if (isUp && waiting[2 + 2 * i].revents != 0) isUp = handOn(client, server, false);
      if (isUp && waiting[3 + 2 * i].revents != 0) isUp = handOn(server, client, true);
      isCut = isCut || bytes_ >= limit_;
      if (isUp) {
        kept.push_back(wires[i]);
      } else {
        close(client);
        close(server);
      }
    }
    wires = kept;
    if (waiting[1].revents != 0) {
      const int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
      const int server = isCut ? -1 : server_.connect();
      if (server >= 0) {
        wires.emplace_back(client, server);
      } else {
        close(client);
      }
    }
    if (waiting[0].revents != 0) break;
  }
  for (const auto& [client, server] : wires) {
    close(client);
    close(server);
  }
}

}  // namespace zntopo::test
