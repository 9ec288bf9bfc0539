#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>

#include "tests/support/Scratch.h"

/// @file
/// A PostgreSQL server that a test may stop, crash and start again.

namespace zntopo::test {

/// A server of its own, in a fresh folder and on a socket in it, for the life of this object;
/// other tests' servers are not touched. It runs as the user "postgres" for root, and ends with
/// the thread that started it, however that ends.
///
/// Throws std::runtime_error with the server's output if it can't be made or started.
class PostgresServer {
 public:
  /// How a server is stopped.
  enum class Stop : int {
    Fast,  ///< it ends its connections, with a word to each, and shuts down
    Crash  ///< it is gone at once and recovers at the next start
  };

  /// @param mostBytesOfFile no file of the server grows beyond this; 0 for no limit.
  explicit PostgresServer(long mostBytesOfFile = 0);
  ~PostgresServer();
  PostgresServer(const PostgresServer&) = delete;
  PostgresServer& operator=(const PostgresServer&) = delete;

  /// Starts the server and waits until it takes connections.
  void start();
  /// Stops the server and waits until it is gone.
  void stop(Stop how = Stop::Fast);
  bool isRunning() const { return pid_ > 0; }

  /// Starts the server again on a free port, of 127.0.0.1 and of its socket; gives the port.
  int listenOnTcp();

  /// Makes ZNTOPO_TEST_POSTGRES name this server, so that a TestEngine lies on it. At the end of
  /// this object it names what it named before.
  void setEnvironment();
  /// The path of its socket.
  std::filesystem::path socket() const;
  const std::filesystem::path& folder() const { return scratch_.folder(); }
  /// Gives a folder to the user that the server runs as.
  static void giveToServer(const std::filesystem::path& folder);

 private:
  pid_t spawn(const std::string& program, const std::string& arguments) const;
  void makeCluster();
  bool isReady() const;
  [[noreturn]] void fail(const std::string& what) const;

  long mostBytesOfFile_;
  Scratch scratch_;
  std::optional<std::string> outerServer_;
  int port_ = 5432;
  pid_t pid_ = -1;
};

}  // namespace zntopo::test
