#pragma once

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>

/// @file
/// A wire to a server that a test can cut.

namespace zntopo::test {

/// Listens on a Unix socket and hands on what comes to the socket of a server and back. The wire
/// is cut, without a word, when the server has said a number of bytes: of all connections together.
/// After that nobody gets through until it is mended.
class CuttingProxy {
 public:
  CuttingProxy(const std::filesystem::path& listened, const std::filesystem::path& server);
  ~CuttingProxy();
  CuttingProxy(const CuttingProxy&) = delete;
  CuttingProxy& operator=(const CuttingProxy&) = delete;

  /// Cuts after so many more bytes; 0 at once.
  void cutAfter(long bytes);
  void mend();
  /// How many bytes the server has said since the last mending.
  long bytes() const { return bytes_; }

 private:
  void run();
  /// False when the connection ends.
  bool handOn(int from, int to, bool isFromServer);

  std::filesystem::path server_;
  int listener_ = -1;
  int wake_[2] = {-1, -1};
  std::atomic<long> bytes_ = 0;
  std::atomic<long> limit_;
  std::thread thread_;
};

}  // namespace zntopo::test
