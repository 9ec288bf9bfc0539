#include "zntopo/store/ODBCConn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <list>

#include "tests/support/CapturedLog.h"
#include "tests/support/TestStore.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

/// Runs one statement on a holder's connection.
void run(const ODBCConn& holder, const std::string& sql) {
  TvXplMsg::MessageList_t messages;
  TvDbil::DbStatement_t statement(messages, holder.getDbConnection());
  ASSERT_EQ(statement.BindSql(messages, sql.c_str()), TvDbil::DBIL_SUCCESS)
      << messages.Format(TvXplMsg::fRecurse_k);
  ASSERT_EQ(statement.Exec(messages), TvDbil::DBIL_SUCCESS)
      << messages.Format(TvXplMsg::fRecurse_k);
}

class ODBCConnTest : public StoreTest {};

ZNTOPO_ON_ENGINES(ODBCConnTest, kEngines);

TEST_P(ODBCConnTest, AHolderStartsATransactionAndCommitsAtItsEnd) {
  {
    ODBCConn holder;
    EXPECT_TRUE(holder.getStatus().isOK());
    EXPECT_TRUE(holder.IsValid());
    EXPECT_TRUE(holder.InTransaction());
    ASSERT_NE(holder.getConnection(), nullptr);
    EXPECT_EQ(holder.getDbConnection(), holder.getConnection()->getDbConnection());
    run(holder, "insert into nwvlan_update (ObjId) values ('v')");
    run(holder, "insert into nwentity_update (ObjId) values ('v')");
  }
  EXPECT_EQ(store_->count("nwvlan_update"), 1);
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 1);
  EXPECT_EQ(ZNDBTestAccess::idleCount(), 1U);
}

TEST_P(ODBCConnTest, AHolderThatIsNotToCommitRollsBack) {
  {
    ODBCConn holder(true, false);
    run(holder, "insert into nwentity (ObjId) values ('e')");
  }
  EXPECT_EQ(store_->count("nwentity"), 0);
  EXPECT_EQ(ZNDBTestAccess::idleCount(), 1U);
}

TEST_P(ODBCConnTest, AHolderCanDoWithoutATransaction) {
  {
    ODBCConn holder(false);
    EXPECT_TRUE(holder.getStatus().isOK());
    EXPECT_FALSE(holder.InTransaction());
    run(holder, "insert into nwentity (ObjId) values ('e')");
    EXPECT_EQ(store_->count("nwentity"), 1);
  }
  EXPECT_EQ(ZNDBTestAccess::idleCount(), 1U);
}

TEST_P(ODBCConnTest, TheTransactionOperationsGoThrough) {
  TvXplMsg::MessageList_t messages;
  ODBCConn holder;
  run(holder, "insert into nwentity (ObjId) values ('kept')");
  EXPECT_EQ(holder.CommitTransaction(messages), TvDbil::DBIL_SUCCESS);
  EXPECT_FALSE(holder.InTransaction());
  EXPECT_EQ(holder.StartTransaction(messages), TvDbil::DBIL_SUCCESS);
  run(holder, "insert into nwentity (ObjId) values ('dropped')");
  EXPECT_EQ(holder.RollbackTransaction(messages), TvDbil::DBIL_SUCCESS);
  EXPECT_EQ(store_->value("select ObjId from nwentity"), "kept");
}

TEST_P(ODBCConnTest, AFailureToCommitAtTheEndIsLoggedOnlyAndRetiresTheConnection) {
  const CapturedLog log;
  {
    ODBCConn holder;
    // The parent that this row needs is missed when the transaction ends.
    run(holder, "insert into nwvlan (ObjId) values ('without its entity')");
    EXPECT_TRUE(holder.getStatus().isOK());
  }
  EXPECT_EQ(store_->count("nwvlan"), 0);
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 0);
  EXPECT_EQ(ZNDBTestAccess::lostCount(), 1U);
  EXPECT_THAT(log.lines(), Contains("ODBCConn::~ODBCConn - Failure in committing transaction. \n"));
  EXPECT_TRUE(ODBCConn().getStatus().isOK());
}

TEST_P(ODBCConnTest, AHolderThatWillNotStartATransactionReturnsItsConnection) {
  ZNDBConnection* first = nullptr;
  { first = ODBCConn().getConnection(); }
  ZNDBTestAccess::dropPlatformConnection(*first);
  const CapturedLog log;
  {
    ODBCConn holder;
    EXPECT_EQ(holder.getStatus().getStatus(), ZN_API_SQL_START_TRANSACTION_ERROR);
    EXPECT_EQ(holder.getStatus().getAuxMsg(), "Unable to Start a Transaction\n");
    EXPECT_EQ(holder.getConnection(), first);
    EXPECT_EQ(ZNDBTestAccess::idleCount(), 0U);
  }
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 1);
  EXPECT_EQ(ZNDBTestAccess::idleCount(), 1U);
  EXPECT_THAT(log.lines(), Contains("ODBCConn - Unable to Start Transaction! \n"));
}

TEST_P(ODBCConnTest, AConnectionThatWentBadWhileIdleIsLentAllTheSame) {
  ZNDBConnection* first = nullptr;
  { first = ODBCConn(false).getConnection(); }
  ZNDBTestAccess::dropPlatformConnection(*first);
  ODBCConn holder(false);
  EXPECT_TRUE(holder.getStatus().isOK());
  EXPECT_EQ(holder.getConnection(), first);
  EXPECT_FALSE(holder.IsValid());
  EXPECT_EQ(holder.getDbConnection(), nullptr);
}

class ODBCConnSqliteTest : public testing::Test {
 protected:
  TestStore store_;
};

TEST_F(ODBCConnSqliteTest, AHolderLogsItsLife) {
  { const ODBCConn warmUp; }
  const CapturedLog log(MC_INFO);
  { const ODBCConn holder; }
  EXPECT_THAT(log.lines(),
              ElementsAre("ODBCConn::ODBCConn()\n", "Retreiving Connection from the POOL! \n",
                          "ODBCConn::~ODBCConn()\n",
                          "ODBCConn::~ODBCConn() - Still in transaction, commit \n",
                          "Entering ZNDB::releaseConnection() \n",
                          "Placing connection back into the pool \n",
                          "Released connection from ODBCConn() \n"));
}

TEST_F(ODBCConnSqliteTest, ARollbackIsLogged) {
  const CapturedLog log(MC_INFO);
  { const ODBCConn holder(true, false); }
  EXPECT_THAT(log.lines(), Contains("ODBCConn::~ODBCConn() - Still in transaction, rollback \n"));
  EXPECT_THAT(log.lines(),
              Not(Contains("ODBCConn::~ODBCConn() - Still in transaction, commit \n")));
}

TEST_F(ODBCConnSqliteTest, AConnectionThatWillNotOpenIsTold) {
  setenv("TV_TOPO_STORE", "/nowhere/at/all.db", 1);
  const CapturedLog log;
  {
    ODBCConn holder;
    EXPECT_EQ(holder.getStatus().getStatus(), ZN_API_DB_CONNECTION_FAILURE);
    EXPECT_EQ(holder.getStatus().getAuxMsg(), "ODBCConn - DB Connection Creation Failed\n");
    EXPECT_EQ(holder.getConnection(), nullptr);
  }
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 0);
  EXPECT_EQ(ZNDBTestAccess::idleCount(), 0U);
  EXPECT_THAT(log.lines(), Contains("ODBCConn::ODBCConn: Unable to obtain a connection! \n"));
  EXPECT_THAT(log.lines(), Not(Contains("Released connection from ODBCConn() \n")));
}

TEST_F(ODBCConnSqliteTest, WithoutAConnectionEveryOperationFails) {
  setenv("TV_TOPO_STORE", "/nowhere/at/all.db", 1);
  ODBCConn holder;
  TvXplMsg::MessageList_t messages;
  EXPECT_EQ(holder.StartTransaction(messages), TvDbil::DBIL_ERROR);
  EXPECT_EQ(holder.CommitTransaction(messages), TvDbil::DBIL_ERROR);
  EXPECT_EQ(holder.RollbackTransaction(messages), TvDbil::DBIL_ERROR);
  EXPECT_FALSE(holder.InTransaction());
  EXPECT_FALSE(holder.IsValid());
  EXPECT_EQ(holder.getDbConnection(), nullptr);
}

TEST_F(ODBCConnSqliteTest, HolderNumberHundredAndOneFailsAtOnceWithTheTextOfTheLimit) {
  std::list<ODBCConn> holders;
  for (int i = 0; i < 100; ++i) {
    holders.emplace_back();
    ASSERT_TRUE(holders.back().getStatus().isOK());
  }
  const CapturedLog log;
  {
    const ODBCConn holder;
    EXPECT_EQ(holder.getStatus().getStatus(), ZN_API_DB_CONNECTION_FAILURE);
    EXPECT_EQ(holder.getStatus().getAuxMsg(), "ODBCCOnn - DB Connection Limit Exceeded\n");
  }
  EXPECT_THAT(log.lines(), Contains("Number of connections exceeded maximum allowed! \n"));
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 100);
  EXPECT_EQ(ZNDBTestAccess::idleCount(), 0U);
  holders.pop_back();
  EXPECT_TRUE(ODBCConn().getStatus().isOK());
}

class ODBCConnPostgresTest : public testing::Test {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(Engine::Postgres);
    store_.emplace(Engine::Postgres);
  }
  /// Cuts every connection to the store but the test's own.
  void dropConnections() {
    store_->execute(
        "select pg_terminate_backend(pid) from pg_stat_activity"
        " where datname = current_database() and pid <> pg_backend_pid()");
  }

  std::optional<TestStore> store_;
};

TEST_F(ODBCConnPostgresTest, AConnectionThatTheServerDroppedWhileIdleHealsWithTheNextHolder) {
  { const ODBCConn holder; }
  dropConnections();
  const ODBCConn holder;
  EXPECT_TRUE(holder.getStatus().isOK());
  run(holder, "select 1");
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 1);
}

TEST_F(ODBCConnPostgresTest, AFailureToRollBackAtTheEndIsLoggedOnly) {
  const CapturedLog log(MC_INFO);
  {
    const ODBCConn holder(true, false);
    dropConnections();
  }
  EXPECT_THAT(log.lines(),
              Contains("ODBCConn::~ODBCConn - Failure in rollingback transaction. \n"));
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 1);
  EXPECT_EQ(ZNDBTestAccess::idleCount(), 1U);
}

TEST_F(ODBCConnPostgresTest, AConnectionThatTheServerDropsInATransactionCostsThatHolderOnly) {
  {
    const ODBCConn holder;
    run(holder, "insert into nwentity (ObjId) values ('lost')");
    dropConnections();
  }
  // Neither the commit nor the rollback worked: the pool keeps the connection.
  EXPECT_EQ(ZNDBTestAccess::idleCount(), 1U);
  EXPECT_EQ(ZNDBTestAccess::lostCount(), 0U);
  EXPECT_EQ(store_->count("nwentity"), 0);
  const ODBCConn holder;
  EXPECT_TRUE(holder.getStatus().isOK());
  run(holder, "select 1");
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 1);
}

}  // namespace
}  // namespace zntopo::test
