#pragma once

#include <sys/socket.h>

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>

/// @file
/// A wire to a server that a test can cut.

namespace zntopo::test {

/// Listens on a socket and hands on what comes to the socket of a server and back. The wire is cut,
/// without a word, when the server has said a number of bytes: of all connections together. After
/// that nobody gets through until it is mended.
///
/// The constructors throw std::runtime_error if that is not possible.
class CuttingProxy {
 public:
  /// From one Unix socket to another.
  CuttingProxy(const std::filesystem::path& listened, const std::filesystem::path& server);
  /// To a port of 127.0.0.1, from one that is free.
  explicit CuttingProxy(int serverPort);
  ~CuttingProxy();
  CuttingProxy(const CuttingProxy&) = delete;
  CuttingProxy& operator=(const CuttingProxy&) = delete;

  /// Cuts after so many more bytes; 0 at once.
  void cutAfter(long bytes);
  void mend();
  /// Where it listens, if that is a port.
  int port() const { return port_; }
  /// How many bytes the server has said since the last mending.
  long bytes() const { return bytes_; }

 private:
  /// The address of a socket of any kind.
  struct Address {
    sockaddr_storage storage = {};
    socklen_t size = 0;

    const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&storage); }
    int makeSocket() const { return socket(storage.ss_family, SOCK_STREAM | SOCK_CLOEXEC, 0); }
    int connect() const;
  };

  static Address unixAddress(const std::filesystem::path& path);
  static Address localAddress(int port);
  void listenOn(const Address& address);
  void run();
  /// False when the connection ends.
  bool handOn(int from, int to, bool isFromServer);

  Address server_;
  int port_ = 0;
  int listener_ = -1;
  int wake_[2] = {-1, -1};
  std::atomic<long> bytes_ = 0;
  std::atomic<long> limit_;
  std::thread thread_;
};

}  // namespace zntopo::test
