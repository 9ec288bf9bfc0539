// The way to a server: what the connection string says of it, and a server that never answers.

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>
#include <map>

#include "tests/platform/tvdbil/EngineFixture.h"
#include "tests/support/MuteServer.h"
#include "tests/support/Places.h"
#include "tests/support/PostgresServer.h"

namespace zntopo::test {
namespace {

std::string storeAt(const MuteServer& server) {
  return "Driver=PostgreSQL Unicode;Servername=127.0.0.1;Port=" + std::to_string(server.port()) +
         ";Username=zntopo;Database=zntopo;";
}

int optionOf(int socket, int level, int name) {
  int value = -1;
  socklen_t size = sizeof value;
  getsockopt(socket, level, name, &value, &size);
  return value;
}

/// The sockets of this process that are connected to a port.
std::vector<int> socketsTo(int port) {
  std::vector<int> found;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    const int descriptor = std::stoi(entry.path().filename());
    sockaddr_in peer{};
    socklen_t size = sizeof peer;
    const bool isConnected =
        getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &size) == 0;
    if (isConnected && peer.sin_family == AF_INET && ntohs(peer.sin_port) == port) {
      found.push_back(descriptor);
    }
  }
  return found;
}

class WireTest : public testing::Test {
 protected:
  /// What opening a store says; empty if that went well.
  static std::string opened(const std::string& store) {
    MessageList_t messages;
    const DbSource_t source(messages, store);
    const DbConnection_t connection(messages, &source);
    return connection.IsValid() ? "" : messages.Format(TvXplMsg::fRecurse_k);
  }
};

TEST_F(WireTest, AServerThatNeverAnswersIsGivenUp) {
  const MuteServer mute;
  EXPECT_THAT(opened(storeAt(mute)), testing::HasSubstr("timeout expired"));
}

// As docs/stores.md advises.
TEST_F(WireTest, TheKeepAliveTimesOfTheConnectionStringAreThoseOfTheSocket) {
  PostgresServer server;
  const int port = server.listenOnTcp();
  const std::string store =
      "Driver=PostgreSQL Unicode;Servername=127.0.0.1;Port=" + std::to_string(port) +
      ";Username=zntopo;Database=postgres;";
  const std::string options =
      "pqopt={keepalives_idle=30 keepalives_interval=5 keepalives_count=3 tcp_user_timeout=30000};";
  EXPECT_NE(contentOf(inSourceTree("docs/stores.md")).find("`" + options + "`"), std::string::npos);
  MessageList_t messages;
  const DbSource_t source(messages, store + options);
  const DbConnection_t connection(messages, &source);
  ASSERT_TRUE(connection.IsValid()) << messages.Format(TvXplMsg::fRecurse_k);
  const std::vector<int> sockets = socketsTo(port);
  ASSERT_EQ(sockets.size(), 1U);
  EXPECT_EQ(optionOf(sockets[0], SOL_SOCKET, SO_KEEPALIVE), 1);
  EXPECT_EQ(optionOf(sockets[0], IPPROTO_TCP, TCP_KEEPIDLE), 30);
  EXPECT_EQ(optionOf(sockets[0], IPPROTO_TCP, TCP_KEEPINTVL), 5);
  EXPECT_EQ(optionOf(sockets[0], IPPROTO_TCP, TCP_KEEPCNT), 3);
  EXPECT_EQ(optionOf(sockets[0], IPPROTO_TCP, TCP_USER_TIMEOUT), 30000);
}

}  // namespace
}  // namespace zntopo::test
