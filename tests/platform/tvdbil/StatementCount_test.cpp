#include "zntopo/platform/tvdbil/StatementCount.h"

#include <ostream>
#include <thread>
#include <vector>

#include "tests/platform/tvdbil/EngineFixture.h"

namespace TvDbil {

static void PrintTo(const StatementCount& count, std::ostream* out) {
  *out << count.prepared << " prepared, " << count.executed << " executed, " << count.transactions
       << " transactions";
}

}  // namespace TvDbil

namespace zntopo::test {
namespace {

using namespace TvDbil;  // NOLINT(google-build-using-namespace)

class StatementCountTest : public EngineFixture {
 protected:
  void SetUp() override {
    EngineFixture::SetUp();
    if (connection_ == nullptr) return;
    mustExecute({"create table t (id int primary key)", "insert into t values (1)"});
    before_ = statementCount();
  }

  StatementCount counted() const { return statementCount() - before_; }

  StatementCount before_;
};

TEST_P(StatementCountTest, APreparationAndEachExecutionCountAndRowsDoNot) {
  DbStatement_t statement(messages_, connection_.get());
  ASSERT_EQ(statement.BindSql(messages_, "select id from t"), DBIL_SUCCESS);
  EXPECT_EQ(counted(), (StatementCount{1, 0, 0}));
  for (std::uint64_t times = 1; times <= 3; ++times) {
    ASSERT_EQ(statement.Exec(messages_), DBIL_SUCCESS);
    EXPECT_EQ(statement.Fetch(messages_), DBIL_SUCCESS);
    EXPECT_EQ(counted(), (StatementCount{1, times, 0}));
  }
}

TEST_P(StatementCountTest, ATransactionCountsOnceAndItsOwnStatementsDoNot) {
  ASSERT_EQ(connection_->StartTransaction(messages_), DBIL_SUCCESS);
  EXPECT_EQ(connection_->StartTransaction(messages_), DBIL_TRANSACTION_VIOLATION);
  ASSERT_EQ(execute("insert into t values (2)"), DBIL_SUCCESS);
  ASSERT_EQ(connection_->CommitTransaction(messages_), DBIL_SUCCESS);
  EXPECT_EQ(counted(), (StatementCount{1, 1, 1}));
}

TEST_P(StatementCountTest, WhatFailsInTheEngineCounts) {
  EXPECT_EQ(execute("insert into t values (1)"), DBIL_CONSTRAINT_VIOLATION);
  EXPECT_EQ(counted(), (StatementCount{1, 1, 0}));
}

TEST_P(StatementCountTest, WhatIsRefusedBeforeTheEngineDoesNotCount) {
  DbStatement_t statement(messages_, connection_.get());
  EXPECT_EQ(statement.BindSql(messages_, "delete from t; delete from t"), DBIL_ERROR);
  EXPECT_EQ(statement.Exec(messages_), DBIL_ERROR);
  EXPECT_EQ(counted(), (StatementCount{0, 0, 0}));
  ASSERT_EQ(statement.BindSql(messages_, "select id from t where id = ?"), DBIL_SUCCESS);
  EXPECT_EQ(statement.Exec(messages_), DBIL_ERROR) << "the parameter is not bound";
  EXPECT_EQ(counted(), (StatementCount{1, 0, 0}));
}

TEST_P(StatementCountTest, ANewConnectionsSettingsDoNotCount) {
  EXPECT_TRUE(open()->IsValid());
  EXPECT_EQ(counted(), (StatementCount{0, 0, 0}));
}

TEST_P(StatementCountTest, NothingIsLostBetweenThreads) {
  constexpr int kThreads = 4;
  constexpr int kStatements = 25;
  std::vector<std::thread> threads;
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([this] {
      MessageList_t messages;
      const DbSource_t source(messages, engine_->store());
      DbConnection_t connection(messages, &source);
      for (int times = 0; times < kStatements; ++times) {
        DbStatement_t statement(messages, &connection);
        statement.BindSql(messages, "select id from t");
        statement.Exec(messages);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(counted(), (StatementCount{kThreads * kStatements, kThreads * kStatements, 0}));
}

ZNTOPO_ON_ENGINES(StatementCountTest, kEngines);

}  // namespace
}  // namespace zntopo::test
