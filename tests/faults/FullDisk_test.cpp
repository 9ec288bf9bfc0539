// The disk is full before a network is in the store.

#include <fstream>

#include "tests/faults/FaultFixture.h"
#include "tests/faults/SmallDisk.h"
#include "tests/support/CliSupport.h"
#include "tests/support/StoreDump.h"
#include "tools/network/StoreWriter.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;

/// A text that no engine can make much shorter.
std::string longText(int seed, int length) {
  std::string text;
  unsigned state = static_cast<unsigned>(seed) * 2654435761u + 1;
  for (int i = 0; i < length; ++i) {
    state = state * 1664525u + 1013904223u;
    text += static_cast<char>('a' + (state >> 24) % 26);
  }
  return text;
}

tools::NetworkModel largeNetwork(int nodes) {
  tools::NetworkModel network;
  for (int i = 0; i < nodes; ++i) {
    tools::NodeModel node;
    node.key = "n" + std::to_string(i);
    node.name = node.key;
    node.description = longText(i, 1500);
    network.nodes.push_back(node);
  }
  return network;
}

/// A store that holds a small network and has room for little more.
class FullStoreTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    if (GetParam() == Engine::Postgres) {
      // A table is a file; none of the server's own comes near.
      server_.emplace(2 << 20);
      server_->setEnvironment();
    }
    store_.emplace(GetParam());
    TvXplMsg::MessageList_t messages;
    const TvDbil::DbSource_t source(messages, store_->engine().store());
    connection_.emplace(messages, &source);
    write(largeNetwork(3));
  }

  void TearDown() override {
    connection_.reset();
    store_.reset();
    server_.reset();
  }

  /// Lets the store of SQLite grow to so many pages.
  void limitPages(const std::string& pages) {
    if (GetParam() == Engine::Postgres) return;
    TvXplMsg::MessageList_t messages;
    TvDbil::DbStatement_t statement(messages, &*connection_);
    const std::string sql = "pragma max_page_count = " + pages;
    ASSERT_EQ(statement.BindSql(messages, sql.c_str()), TvDbil::DBIL_SUCCESS);
    ASSERT_EQ(statement.Exec(messages), TvDbil::DBIL_SUCCESS);
  }

  tools::WriteReport write(const tools::NetworkModel& network) {
    tools::NetworkReport report;
    return tools::writeNetworks(*connection_, {network}, "", report);
  }

  /// What a failed write says.
  std::string failureOf(const tools::NetworkModel& network) {
    try {
      write(network);
    } catch (const tools::StoreError& error) {
      return error.what();
    }
    return "";
  }

  std::optional<PostgresServer> server_;
  std::optional<TestStore> store_;
  std::optional<TvDbil::DbConnection_t> connection_;
};

TEST_P(FullStoreTest, AWriteThatDoesNotFitLeavesTheStoreAsItWas) {
  const std::string before = dumpStore(*connection_);
  limitPages("600");
  const std::string failure = failureOf(largeNetwork(2000));
  EXPECT_THAT(failure, HasSubstr(GetParam() == Engine::Postgres ? "could not extend file"
                                                                : "database or disk is full"));
  EXPECT_THAT(failure, HasSubstr("Nothing was written: the store is as it was."));
  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_EQ(dumpStore(*connection_), before);
  EXPECT_EQ(failureOf(largeNetwork(2000)), failure) << "and again";
  EXPECT_EQ(dumpStore(*connection_), before);
}

TEST_P(FullStoreTest, AnEmptyStoreKeepsItsIndicesThroughAWriteThatDoesNotFit) {
  for (const char* table : {"nwnode", "nwentity"})
    store_->execute(std::string("delete from ") + table);
  const std::string indices =
      GetParam() == Engine::Postgres
          ? "select count(*) from pg_indexes where schemaname = 'public'"
          : "select count(*) from sqlite_master where type = 'index' and sql is not null";
  const auto before = store_->value(indices);
  limitPages("600");
  EXPECT_NE(failureOf(largeNetwork(2000)), "");
  EXPECT_EQ(store_->value(indices), before);
}

TEST_P(FullStoreTest, WithRoomTheSameConnectionWritesTheSameNetwork) {
  limitPages("600");
  ASSERT_NE(failureOf(largeNetwork(2000)), "");
  limitPages("1000000");
  // The files of the server stay small, so the network has to; what the failure left in them is
  // in the way until it is swept up, which a server does by and by.
  if (GetParam() == Engine::Postgres) store_->execute("vacuum full");
  const int nodes = GetParam() == Engine::Postgres ? 200 : 2000;
  EXPECT_GT(write(largeNetwork(nodes)).added, nodes);
  EXPECT_EQ(store_->count("nwnode"), nodes);
}

ZNTOPO_ON_ENGINES(FullStoreTest, kEngines);

/// The command on a disk that is really full.
class FullDiskTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    // A store of SQLite has its indices and its journal on the disk, too.
    disk_.emplace(GetParam() == Engine::Postgres ? 2 : 3);
    if (!disk_->whyMissing().empty()) GTEST_SKIP() << disk_->whyMissing();
    if (GetParam() == Engine::Postgres) {
      setUpServer();
    } else {
      setenv("TV_TOPO_STORE", (disk_->folder() / "full.db").c_str(), 1);
      ASSERT_EQ(zntopoRun({"init"}).status, 0);
    }
    ASSERT_EQ(zntopoRun({"import", samplePath()}).status, 0);
    writeLargeFile();
  }

  /// The server's other files are elsewhere; the tables of the nodes are on the disk.
  void setUpServer() {
    server_.emplace();
    server_->setEnvironment();
    const auto place = disk_->folder() / "tables";
    std::filesystem::create_directory(place);
    PostgresServer::giveToServer(place);
    engine_.emplace(GetParam());
    engine_->setEnvironment();
    executeOn(postgresStore("postgres"),
              "create tablespace small location '" + place.string() + "'");
    ASSERT_EQ(zntopoRun({"init"}).status, 0);
    for (const char* table : {"nwentity", "nwnode"}) {
      executeOn(engine_->store(), std::string("alter table ") + table + " set tablespace small");
    }
  }

  void TearDown() override {
    engine_.reset();
    server_.reset();
    disk_.reset();
    unsetenv("TV_TOPO_STORE");
  }

  void writeLargeFile() {
    file_ = scratch_.path("large.json");
    std::ofstream stream(file_);
    stream << R"({"ietf-network:networks": {"network": [{"network-id": "large", "node": [)";
    for (int i = 0; i < kNodes; ++i) {
      stream << (i > 0 ? "," : "") << "{\"node-id\": \"n" << i << longText(i, 200) << "\"}";
    }
    stream << "]}]}}";
  }

  std::string dump() const {
    TvXplMsg::MessageList_t messages;
    const TvDbil::DbSource_t source(messages);
    TvDbil::DbConnection_t connection(messages, &source);
    return dumpStore(connection);
  }

  static constexpr int kNodes = 4000;
  std::optional<SmallDisk> disk_;
  std::optional<PostgresServer> server_;
  std::optional<TestEngine> engine_;
  Scratch scratch_;
  std::string file_;
};

TEST_P(FullDiskTest, AnImportSaysThatTheDiskIsFullAndLosesNothing) {
  const std::string before = dump();
  for (int i = 0; i < 2; ++i) {
    const CliResult failed = zntopoRun({"import", file_});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.out, "");
    EXPECT_THAT(failed.err, HasSubstr("ZN_API_SQL_EXEC_ERROR"));
    EXPECT_THAT(failed.err, HasSubstr("Nothing was written: the store is as it was."));
    EXPECT_THAT(failed.err, HasSubstr("The disk of the store is full: make room there"));
    EXPECT_EQ(dump(), before);
    EXPECT_EQ(zntopoRun({"nodes"}).status, 0) << "questions are answered all the same";
  }
  disk_->grow(64);
  const CliResult imported = zntopoRun({"import", file_});
  EXPECT_EQ(imported.status, 0) << imported.err;
  EXPECT_THAT(imported.out, HasSubstr("Found " + std::to_string(kNodes) + " nodes"));
}

TEST(FullDiskInitTest, AnInitThatDoesNotFitLeavesNoStore) {
  const SmallDisk disk(1);
  if (!disk.whyMissing().empty()) GTEST_SKIP() << disk.whyMissing();
  const auto ballast = disk.folder() / "ballast";
  std::ofstream(ballast) << std::string(900000, 'x');
  const std::string store = (disk.folder() / "full.db").string();
  const CliResult failed = zntopoRun({"init", "--store", store});
  EXPECT_EQ(failed.status, 1);
  EXPECT_THAT(failed.err, HasSubstr("The disk of the store is full: make room there"));
  EXPECT_FALSE(std::filesystem::exists(store));
  std::filesystem::remove(ballast);
  EXPECT_EQ(zntopoRun({"init", "--store", store}).status, 0) << failed.err;
}

ZNTOPO_ON_ENGINES(FullDiskTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
