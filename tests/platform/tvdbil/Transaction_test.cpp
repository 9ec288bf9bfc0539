#include <chrono>

#include "tests/platform/tvdbil/EngineFixture.h"

namespace zntopo::test {
namespace {

using namespace TvDbil;  // NOLINT(google-build-using-namespace)

class TransactionTest : public EngineFixture {
 protected:
  void SetUp() override {
    EngineFixture::SetUp();
    if (connection_ != nullptr) {
      mustExecute({"create table t (id int primary key not null)",
                   "create table c (t int references t (id) deferrable initially deferred)"});
    }
  }

  void start() { start(*connection_); }
  void start(DbConnection_t& connection) {
    ASSERT_EQ(connection.StartTransaction(messages_), DBIL_SUCCESS) << told();
    ASSERT_TRUE(connection.InTransaction());
  }
  std::string count(DbConnection_t& connection) {
    return ask("select count(*) from t", connection);
  }
};

TEST_P(TransactionTest, ACommitShowsItsChangesToOthers) {
  const auto other = open();
  start();
  mustExecute({"insert into t values (1)"});
  EXPECT_EQ(count(*other), "0");
  ASSERT_EQ(connection_->CommitTransaction(messages_), DBIL_SUCCESS) << told();
  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_EQ(count(*other), "1");
}

TEST_P(TransactionTest, ARollbackTakesEveryChangeBack) {
  start();
  mustExecute({"insert into t values (1)", "insert into t values (2)"});
  ASSERT_EQ(connection_->RollbackTransaction(messages_), DBIL_SUCCESS) << told();
  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_EQ(count(*connection_), "0");
}

TEST_P(TransactionTest, WithoutATransactionEachStatementCountsAtOnce) {
  const auto other = open();
  EXPECT_FALSE(connection_->InTransaction());
  mustExecute({"insert into t values (1)"});
  EXPECT_EQ(count(*other), "1");
}

TEST_P(TransactionTest, AfterATransactionEachStatementCountsAtOnceAgain) {
  const auto other = open();
  start();
  ASSERT_EQ(connection_->CommitTransaction(messages_), DBIL_SUCCESS);
  mustExecute({"insert into t values (1)"});
  EXPECT_EQ(count(*other), "1");
  start();
  ASSERT_EQ(connection_->RollbackTransaction(messages_), DBIL_SUCCESS);
  mustExecute({"insert into t values (2)"});
  EXPECT_EQ(count(*other), "2");
}

TEST_P(TransactionTest, AConnectionThatGoesInItsTransactionTakesItBack) {
  auto other = open();
  start(*other);
  ASSERT_EQ(execute("insert into t values (1)", *other), DBIL_SUCCESS);
  other.reset();
  EXPECT_EQ(count(*connection_), "0");
}

TEST_P(TransactionTest, ASecondStartIsRefusedAndLeavesTheFirst) {
  start();
  mustExecute({"insert into t values (1)"});
  EXPECT_EQ(connection_->StartTransaction(messages_), DBIL_TRANSACTION_VIOLATION);
  EXPECT_TRUE(connection_->InTransaction());
  ASSERT_EQ(connection_->CommitTransaction(messages_), DBIL_SUCCESS);
  EXPECT_EQ(count(*connection_), "1");
}

TEST_P(TransactionTest, ThereIsNothingToEndWithoutATransaction) {
  EXPECT_EQ(connection_->CommitTransaction(messages_), DBIL_TRANSACTION_VIOLATION);
  EXPECT_EQ(connection_->RollbackTransaction(messages_), DBIL_TRANSACTION_VIOLATION);
  EXPECT_FALSE(connection_->InTransaction());
}

TEST_P(TransactionTest, AFailedStatementLosesNothingOfItsTransaction) {
  start();
  mustExecute({"insert into t values (1)"});
  EXPECT_EQ(execute("insert into t values (1)"), DBIL_CONSTRAINT_VIOLATION);
  EXPECT_EQ(execute("selec 1"), DBIL_PERMISSION_SYNTAX);
  EXPECT_EQ(execute("select a from missing"), DBIL_PERMISSION_SYNTAX);
  mustExecute({"insert into t values (2)"});
  ASSERT_EQ(connection_->CommitTransaction(messages_), DBIL_SUCCESS) << told();
  const auto other = open();
  EXPECT_EQ(count(*other), "2");
}

TEST_P(TransactionTest, AFailureOfTheFirstStatementLosesNothingOfItsTransaction) {
  for (const char* failing : {"selec 1", "select a from missing", "insert into missing values (1)",
                              "insert into t values (null)"}) {
    mustExecute({"delete from t"});
    start();
    EXPECT_NE(execute(failing), DBIL_SUCCESS);
    mustExecute({"insert into t values (1)"});
    EXPECT_EQ(count(*connection_), "1");
    ASSERT_EQ(connection_->CommitTransaction(messages_), DBIL_SUCCESS) << failing << told();
    EXPECT_EQ(count(*connection_), "1");
  }
}

TEST_P(TransactionTest, AFailedStatementOfSeveralRowsLeavesNoneOfThem) {
  start();
  mustExecute({"insert into t values (3)"});
  EXPECT_EQ(execute("insert into t values (1), (2), (3)"), DBIL_CONSTRAINT_VIOLATION);
  ASSERT_EQ(connection_->CommitTransaction(messages_), DBIL_SUCCESS) << told();
  EXPECT_EQ(count(*connection_), "1");
}

TEST_P(TransactionTest, ACommitThatFailsStaysInTheTransactionUntilARollback) {
  start();
  mustExecute({"insert into t values (1)", "insert into c values (77)"});
  EXPECT_EQ(connection_->CommitTransaction(messages_), DBIL_CONSTRAINT_VIOLATION) << told();
  EXPECT_TRUE(connection_->InTransaction());
  EXPECT_EQ(execute("delete from c"), DBIL_TRANSACTION_VIOLATION);
  EXPECT_EQ(connection_->CommitTransaction(messages_), DBIL_TRANSACTION_VIOLATION);
  EXPECT_TRUE(connection_->InTransaction());
  EXPECT_EQ(connection_->RollbackTransaction(messages_), DBIL_SUCCESS) << told();
  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_EQ(count(*connection_), "0");
  start();
  mustExecute({"insert into t values (2)"});
  EXPECT_EQ(connection_->CommitTransaction(messages_), DBIL_SUCCESS) << told();
  EXPECT_EQ(count(*connection_), "1");
}

TEST_P(TransactionTest, AResultSetEndsWithItsTransaction) {
  mustExecute({"insert into t values (1), (2), (3)"});
  for (const bool commit : {true, false}) {
    DbStatement_t statement(messages_, connection_.get());
    start();
    ASSERT_EQ(statement.BindSql(messages_, "select id from t"), DBIL_SUCCESS);
    ASSERT_EQ(statement.Exec(messages_), DBIL_SUCCESS);
    ASSERT_EQ(statement.Fetch(messages_), DBIL_SUCCESS);
    ASSERT_EQ(commit ? connection_->CommitTransaction(messages_)
                     : connection_->RollbackTransaction(messages_),
              DBIL_SUCCESS)
        << told();
    EXPECT_EQ(statement.Fetch(messages_), DBIL_ERROR);
    EXPECT_EQ(statement.Exec(messages_), DBIL_SUCCESS) << "it may be executed again: " << told();
    EXPECT_EQ(statement.Fetch(messages_), DBIL_SUCCESS);
  }
}

TEST_P(TransactionTest, AReaderGoesOnWhileAnotherConnectionWrites) {
  mustExecute({"insert into t values (1), (2), (3)"});
  const auto writer = open();
  DbStatement_t reading(messages_, connection_.get());
  int id = 0;
  int indicator = 0;
  start();
  ASSERT_EQ(reading.BindSql(messages_, "select id from t order by id"), DBIL_SUCCESS);
  ASSERT_EQ(reading.BindColumn(messages_, 1, &id, &indicator), DBIL_SUCCESS);
  ASSERT_EQ(reading.Exec(messages_), DBIL_SUCCESS);
  ASSERT_EQ(reading.Fetch(messages_), DBIL_SUCCESS);
  start(*writer);
  ASSERT_EQ(execute("delete from t", *writer), DBIL_SUCCESS) << told();
  ASSERT_EQ(writer->CommitTransaction(messages_), DBIL_SUCCESS) << told();
  ASSERT_EQ(reading.Fetch(messages_), DBIL_SUCCESS) << told();
  ASSERT_EQ(reading.Fetch(messages_), DBIL_SUCCESS) << told();
  EXPECT_EQ(id, 3);
  EXPECT_EQ(connection_->CommitTransaction(messages_), DBIL_SUCCESS) << told();
}

TEST_P(TransactionTest, AWriterThatIsKeptWaitingFailsAfterFiveSeconds) {
  mustExecute({"insert into t values (1)"});
  const auto holder = open();
  start(*holder);
  ASSERT_EQ(execute("update t set id = 2 where id = 1", *holder), DBIL_SUCCESS);
  start();
  const auto before = std::chrono::steady_clock::now();
  EXPECT_EQ(execute("update t set id = 3 where id = 1"), DBIL_ERROR);
  const std::chrono::duration<double> waited = std::chrono::steady_clock::now() - before;
  EXPECT_GT(waited.count(), 4.0) << told();
  // The ODBC driver for SQLite tries a second time by itself.
  EXPECT_LT(waited.count(), GetParam() == Engine::SqliteOdbc ? 14.0 : 9.0);
  EXPECT_EQ(connection_->RollbackTransaction(messages_), DBIL_SUCCESS) << told();
  EXPECT_EQ(holder->CommitTransaction(messages_), DBIL_SUCCESS) << told();
}

TEST_P(TransactionTest, ATransactionThatTheEngineEndsByItselfCannotBeCommitted) {
  if (engine_->isPostgres()) GTEST_SKIP() << "SQLite's own \"insert or rollback\"";
  start();
  mustExecute({"insert into t values (1)"});
  EXPECT_EQ(execute("insert or rollback into t values (1)"), DBIL_CONSTRAINT_VIOLATION);
  EXPECT_EQ(execute("insert into t values (2)"), DBIL_TRANSACTION_VIOLATION);
  EXPECT_NE(connection_->CommitTransaction(messages_), DBIL_SUCCESS);
  EXPECT_TRUE(connection_->InTransaction());
  EXPECT_EQ(connection_->RollbackTransaction(messages_), DBIL_SUCCESS) << told();
  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_EQ(count(*connection_), "0");
}

ZNTOPO_ON_ENGINES(TransactionTest, kEngines);

/// What only a server can do.
class ServerTransactionTest : public TransactionTest {
 protected:
  void SetUp() override {
    TransactionTest::SetUp();
    if (connection_ != nullptr) administrator_ = open();
  }

  /// Makes the server end a connection.
  void drop(DbConnection_t& connection) {
    const std::string backend = ask("select pg_backend_pid()", connection);
    ASSERT_EQ(ask("select pg_terminate_backend(" + backend + ", 5000)", *administrator_), "1")
        << told();
  }

  std::unique_ptr<DbConnection_t> administrator_;
};

TEST_P(ServerTransactionTest, AConnectionDroppedWhileIdleIsOpenedAgainByTheNextStart) {
  drop(*connection_);
  start();
  mustExecute({"insert into t values (1)"});
  EXPECT_EQ(connection_->CommitTransaction(messages_), DBIL_SUCCESS) << told();
  EXPECT_EQ(count(*administrator_), "1");
  EXPECT_EQ(ask("show lock_timeout"), "5s") << "the new connection is set up like the first";
}

TEST_P(ServerTransactionTest, ADropInATransactionFailsItsCommitAndTheNextStartHeals) {
  start();
  mustExecute({"insert into t values (1)"});
  drop(*connection_);
  EXPECT_NE(execute("insert into t values (2)"), DBIL_SUCCESS);
  EXPECT_FALSE(connection_->IsValid());
  EXPECT_NE(connection_->CommitTransaction(messages_), DBIL_SUCCESS);
  EXPECT_TRUE(connection_->InTransaction());
  EXPECT_NE(connection_->RollbackTransaction(messages_), DBIL_SUCCESS);
  EXPECT_FALSE(connection_->InTransaction()) << "the server has rolled it back";
  start();
  EXPECT_TRUE(connection_->IsValid());
  mustExecute({"insert into t values (3)"});
  EXPECT_EQ(connection_->CommitTransaction(messages_), DBIL_SUCCESS) << told();
  EXPECT_EQ(ask("select id from t"), "3");
}

TEST_P(ServerTransactionTest, ADropBetweenTheLastStatementAndTheCommitFailsTheCommit) {
  start();
  mustExecute({"insert into t values (1)"});
  drop(*connection_);
  EXPECT_NE(connection_->CommitTransaction(messages_), DBIL_SUCCESS);
  EXPECT_TRUE(connection_->InTransaction());
  start();
  EXPECT_EQ(count(*connection_), "0");
}

TEST_P(ServerTransactionTest, AStatementOfADroppedConnectionIsPreparedAnew) {
  DbStatement_t statement(messages_, connection_.get());
  ASSERT_EQ(statement.BindSql(messages_, "select 1"), DBIL_SUCCESS);
  ASSERT_EQ(statement.Exec(messages_), DBIL_SUCCESS);
  drop(*connection_);
  start();
  EXPECT_EQ(statement.Exec(messages_), DBIL_ERROR);
  ASSERT_EQ(statement.BindSql(messages_, "select 1"), DBIL_SUCCESS) << told();
  ASSERT_EQ(statement.Exec(messages_), DBIL_SUCCESS) << told();
  EXPECT_EQ(statement.Fetch(messages_), DBIL_SUCCESS);
}

TEST_P(ServerTransactionTest, AConnectionThatCannotBeOpenedAgainFailsToStartAndTriesTheNextTime) {
  const std::string database = ask("select current_database()");
  drop(*connection_);
  executeOn(postgresStore("postgres"),
            "alter database " + database + " with allow_connections false");
  EXPECT_NE(connection_->StartTransaction(messages_), DBIL_SUCCESS);
  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_FALSE(connection_->IsValid());
  EXPECT_NE(execute("select 1"), DBIL_SUCCESS);
  executeOn(postgresStore("postgres"),
            "alter database " + database + " with allow_connections true");
  start();
  EXPECT_EQ(ask("select 1"), "1");
}

// A connection string can switch off the savepoint around each statement. A failure then loses
// the transaction, and the driver's own commit reports success all the same.
TEST_P(ServerTransactionTest, ACommitNeverReportsSuccessForWhatWasRolledBack) {
  for (const char* option :
       {"", "Protocol=7.4-0;", "Protocol=7.4-1;", "Protocol=7.4-2;", "UseServerSidePrepare=0;",
        "UseServerSidePrepare=0;Protocol=7.4-0;", "UseServerSidePrepare=0;Protocol=7.4-1;"}) {
    mustExecute({"delete from t"});
    const auto other = open(engine_->store() + option);
    ASSERT_TRUE(other->IsValid()) << told();
    start(*other);
    ASSERT_EQ(execute("insert into t values (1)", *other), DBIL_SUCCESS) << told();
    EXPECT_EQ(execute("insert into t values (1)", *other), DBIL_CONSTRAINT_VIOLATION);
    const DbilReturnCode later = execute("insert into t values (2)", *other);
    const DbilReturnCode committed = other->CommitTransaction(messages_);
    EXPECT_EQ(later, committed) << option;
    EXPECT_EQ(other->InTransaction(), committed != DBIL_SUCCESS) << option;
    if (committed != DBIL_SUCCESS) {
      EXPECT_EQ(other->RollbackTransaction(messages_), DBIL_SUCCESS) << option << told();
    }
    EXPECT_EQ(count(*connection_), committed == DBIL_SUCCESS ? "2" : "0") << option;
    start(*other);
    ASSERT_EQ(execute("insert into t values (3)", *other), DBIL_SUCCESS) << option << told();
    EXPECT_EQ(other->CommitTransaction(messages_), DBIL_SUCCESS) << option << told();
  }
}

ZNTOPO_ON_ENGINES(ServerTransactionTest, kPostgres);

}  // namespace
}  // namespace zntopo::test
