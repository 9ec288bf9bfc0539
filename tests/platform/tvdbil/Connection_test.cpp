#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <thread>
#include <vector>

#include "tests/platform/tvdbil/EngineFixture.h"

namespace zntopo::test {
namespace {

using namespace TvDbil;  // NOLINT(google-build-using-namespace)
namespace fs = std::filesystem;

class ConnectionTest : public EngineFixture {};

TEST_P(ConnectionTest, TheEngineTellsItsNameAndItsMakerIsUnknown) {
  EXPECT_EQ(connection_->GetEngineName(), engine_->isPostgres() ? "PostgreSQL" : "SQLite");
  EXPECT_EQ(connection_->GetVendor(), Unknown);
}

TEST_P(ConnectionTest, SeveralConnectionsOfOneThreadFetchInTurns) {
  constexpr int kConnections = 5;
  std::vector<std::unique_ptr<DbConnection_t>> connections;
  std::vector<std::unique_ptr<DbStatement_t>> statements;
  std::vector<int> values(kConnections);
  std::vector<int> indicators(kConnections);
  for (int i = 0; i < kConnections; ++i) {
    connections.push_back(open());
    ASSERT_EQ(connections.back()->StartTransaction(messages_), DBIL_SUCCESS) << told();
    statements.push_back(std::make_unique<DbStatement_t>(messages_, connections.back().get()));
    const std::string sql =
        "select " + std::to_string(i) + " union all select " + std::to_string(i + 100);
    ASSERT_EQ(statements[i]->BindSql(messages_, sql.c_str()), DBIL_SUCCESS) << told();
    ASSERT_EQ(statements[i]->BindColumn(messages_, 1, &values[i], &indicators[i]), DBIL_SUCCESS);
    ASSERT_EQ(statements[i]->Exec(messages_), DBIL_SUCCESS) << told();
  }
  for (int row = 0; row < 2; ++row) {
    for (int i = 0; i < kConnections; ++i) {
      ASSERT_EQ(statements[i]->Fetch(messages_), DBIL_SUCCESS) << told();
      EXPECT_EQ(values[i], i + 100 * row);
    }
  }
  // Connections first, and statements with rows left in them: each keeps what it needs.
  connections.clear();
  statements.clear();
}

TEST_P(ConnectionTest, ThreadsUseConnectionsOfTheirOwn) {
  ASSERT_EQ(execute("create table t (id int primary key)"), DBIL_SUCCESS) << told();
  std::vector<std::string> answers(4);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < answers.size(); ++i) {
    threads.emplace_back([this, i, &answers] {
      MessageList_t messages;
      const DbSource_t source(messages, engine_->store());
      DbConnection_t connection(messages, &source);
      for (std::size_t n = 0; n < 20; ++n) {
        const std::string sql = "insert into t values (" + std::to_string(100 * i + n) + ")";
        DbStatement_t statement(messages, &connection);
        if (connection.StartTransaction(messages) != DBIL_SUCCESS ||
            statement.BindSql(messages, sql.c_str()) != DBIL_SUCCESS ||
            statement.Exec(messages) != DBIL_SUCCESS ||
            connection.CommitTransaction(messages) != DBIL_SUCCESS) {
          answers[i] = messages.Format(TvXplMsg::fRecurse_k);
          return;
        }
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const std::string& answer : answers) EXPECT_EQ(answer, "");
  EXPECT_EQ(ask("select count(*) from t"), "80");
}

TEST_P(ConnectionTest, ADoubleQuotedTextIsANameAndNoLiteral) {
  if (GetParam() == Engine::SqliteOdbc) {
    GTEST_SKIP() << "the ODBC driver for SQLite has no switch for it";
  }
  EXPECT_EQ(execute("select \"nosuchname\""), DBIL_PERMISSION_SYNTAX);
}

TEST_P(ConnectionTest, TheSessionIsSetUp) {
  if (engine_->isPostgres()) {
    EXPECT_EQ(ask("show lock_timeout"), "5s");
    EXPECT_EQ(ask("show client_encoding"), "UTF8");
    EXPECT_EQ(ask("show standard_conforming_strings"), "on");
    return;
  }
  EXPECT_EQ(ask("pragma foreign_keys"), "1");
  EXPECT_EQ(ask("pragma journal_mode"), "wal");
  EXPECT_EQ(ask("pragma synchronous"), "1");
  EXPECT_EQ(execute("create table t (a int)"), DBIL_SUCCESS);
  if (GetParam() == Engine::Sqlite) {
    EXPECT_EQ(ask("pragma busy_timeout"), "5000");
  }
}

TEST_P(ConnectionTest, NothingButTheStoreItselfIsLeftBehind) {
  ASSERT_EQ(execute("create table t (a int)"), DBIL_SUCCESS);
  EXPECT_EQ(execute("select missing from t"), DBIL_PERMISSION_SYNTAX);
  connection_.reset();
  std::vector<std::string> files;
  for (const auto& entry : fs::directory_iterator(engine_->folder())) {
    files.push_back(entry.path().filename());
  }
  if (engine_->isPostgres()) {
    EXPECT_THAT(files, testing::IsEmpty());
  } else {
    EXPECT_THAT(files, testing::ElementsAre("topology.db"));
  }
}

ZNTOPO_ON_ENGINES(ConnectionTest, kEngines);

class StoreFileTest : public testing::Test {
 protected:
  void SetUp() override { store_ = (engine_.folder() / "other.db").string(); }

  bool canOpen(const std::string& store) {
    const DbSource_t source(messages_, store);
    return DbConnection_t(messages_, &source).IsValid();
  }
  DbilReturnCode create(const std::string& store) {
    return CreateStore(messages_, DbSource_t(messages_, store));
  }
  std::string told() const { return messages_.Format(TvXplMsg::fRecurse_k); }
  static std::string odbc(const std::string& path) { return "Driver=SQLite3;Database=" + path; }

  TestEngine engine_{Engine::Sqlite};
  MessageList_t messages_;
  std::string store_;
};

TEST_F(StoreFileTest, AMissingFileIsNotCreated) {
  for (const std::string& store : {store_, odbc(store_), odbc(store_) + ";NoCreat=0"}) {
    EXPECT_FALSE(canOpen(store)) << store;
    EXPECT_GT(messages_.GetMessageCount(), 0);
    EXPECT_FALSE(fs::exists(store_)) << store;
  }
}

TEST_F(StoreFileTest, AStoreInMemoryIsRefused) {
  const fs::path before = fs::current_path();
  fs::current_path(engine_.folder());
  for (const char* store :
       {"", ":memory:", "file::memory:", "file:x?mode=memory", "file:x?mode=memory&cache=shared",
        "file:/x?vfs=memdb", "file:", "file:?cache=private"}) {
    EXPECT_FALSE(canOpen(store)) << store;
    EXPECT_FALSE(canOpen(odbc(store))) << store;
    EXPECT_EQ(create(store), DBIL_ERROR) << store;
  }
  EXPECT_FALSE(canOpen("Driver=SQLite3"));
  fs::current_path(before);
  EXPECT_THAT(told(), testing::HasSubstr("in-memory stores"));
  EXPECT_EQ(std::distance(fs::directory_iterator(engine_.folder()), {}), 1) << "topology.db alone";
}

TEST_F(StoreFileTest, AFileThatIsNoStoreIsRefusedAndLeftAsItIs) {
  const std::string text = std::string(2000, 'x');
  std::ofstream(store_) << text;
  EXPECT_FALSE(canOpen(store_));
  EXPECT_FALSE(canOpen(odbc(store_)));
  EXPECT_FALSE(canOpen(engine_.folder().string()));
  EXPECT_EQ(contentOf(store_), text);
}

TEST_F(StoreFileTest, AStoreIsCreatedOnceAndNeverOverAFile) {
  ASSERT_EQ(create(store_), DBIL_SUCCESS) << told();
  EXPECT_TRUE(canOpen(store_)) << told();
  EXPECT_EQ(create(store_), DBIL_ERROR);
  EXPECT_TRUE(fs::exists(store_));
  std::ofstream(engine_.folder() / "text") << "text";
  EXPECT_EQ(create((engine_.folder() / "text").string()), DBIL_ERROR);
  EXPECT_EQ(fs::file_size(engine_.folder() / "text"), 4U);
}

TEST_F(StoreFileTest, AStoreInAMissingFolderIsNotCreated) {
  EXPECT_EQ(create((engine_.folder() / "no" / "such.db").string()), DBIL_ERROR);
  EXPECT_THAT(told(), testing::HasSubstr("No such file or directory"));
}

TEST_F(StoreFileTest, AStoreBehindOdbcIsNotCreated) {
  EXPECT_EQ(create(odbc(store_)), DBIL_ERROR);
  EXPECT_FALSE(fs::exists(store_));
}

TEST_F(StoreFileTest, APathMayHoldBlanksAndLettersOfAnyScript) {
  const std::string path = (engine_.folder() / "Z\xC3\xBCrich 1 \xE2\x82\xAC.db").string();
  ASSERT_EQ(create(path), DBIL_SUCCESS) << told();
  EXPECT_TRUE(canOpen(path)) << told();
  EXPECT_TRUE(canOpen(odbc(path))) << told();
}

TEST_F(StoreFileTest, AFailureToOpenTellsNoPassword) {
  EXPECT_FALSE(canOpen("Driver=PostgreSQL Unicode;Servername=/no/such;Password=topsecret;"));
  EXPECT_FALSE(canOpen("Driver=No such driver;Password=topsecret;"));
  EXPECT_GE(messages_.GetMessageCount(), 2);
  EXPECT_THAT(told(), testing::Not(testing::HasSubstr("topsecret")));
}

TEST_F(StoreFileTest, AConnectionWithoutASourceIsNotValid) {
  DbConnection_t connection(messages_, nullptr);
  EXPECT_FALSE(connection.IsValid());
  EXPECT_FALSE(connection.InTransaction());
  EXPECT_EQ(connection.GetVendor(), Unknown);
  EXPECT_EQ(connection.GetEngineName(), "");
  EXPECT_EQ(connection.StartTransaction(messages_), DBIL_INVALID_HANDLE);
  EXPECT_EQ(connection.CommitTransaction(messages_), DBIL_INVALID_HANDLE);
  EXPECT_EQ(connection.RollbackTransaction(messages_), DBIL_INVALID_HANDLE);
}

TEST(DbSourceTest, TheEnvironmentNamesTheStore) {
  MessageList_t messages;
  setenv("TV_TOPO_STORE", "/data/a.db", 1);
  EXPECT_EQ(DbSource_t(messages).GetStore(), "/data/a.db");
  unsetenv("TV_TOPO_STORE");
  setenv("TV_DATA_PATH", "/data", 1);
  EXPECT_EQ(DbSource_t(messages).GetStore(), "/data/topology.db");
  setenv("TV_TOPO_STORE", "", 1);
  EXPECT_EQ(DbSource_t(messages).GetStore(), "/data/topology.db");
  unsetenv("TV_DATA_PATH");
  EXPECT_THAT(DbSource_t(messages).GetStore(), testing::EndsWith("/topology.db"));
}

TEST(DbSourceTest, AnEqualsSignBeforeAnySlashMakesAConnectionString) {
  MessageList_t messages;
  const auto isOdbc = [&](const char* store) { return DbSource_t(messages, store).IsOdbc(); };
  EXPECT_TRUE(isOdbc("DSN=topology"));
  EXPECT_TRUE(isOdbc("Driver={PostgreSQL Unicode};Servername=/tmp;Database=x"));
  EXPECT_FALSE(isOdbc("topology.db"));
  EXPECT_FALSE(isOdbc("/data/a=b.db"));
  EXPECT_FALSE(isOdbc("./a=b.db"));
  EXPECT_FALSE(isOdbc("file:x?mode=memory"));
}

TEST(DbSourceTest, CopiesNameTheSameStore) {
  MessageList_t messages;
  const DbSource_t source(messages, "DSN=topology");
  DbSource_t copy(source);
  EXPECT_EQ(copy.GetStore(), "DSN=topology");
  copy = DbSource_t(messages, "other.db");
  EXPECT_FALSE(copy.IsOdbc());
  EXPECT_TRUE(source.IsOdbc());
}

}  // namespace
}  // namespace zntopo::test
