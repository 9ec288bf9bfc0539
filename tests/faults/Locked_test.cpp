// Somebody else has locked the store, and keeps it longer than anybody waits.

#include "tests/faults/FaultFixture.h"
#include "tests/faults/Schema.h"
#include "tests/support/StoreUpdates.h"

namespace zntopo::test {
namespace {

using TvDbil::DbConnection_t;

/// Somebody else with a connection of his own, and a transaction until he is gone.
class Holder {
 public:
  explicit Holder(const std::string& store) {
    TvXplMsg::MessageList_t messages;
    const TvDbil::DbSource_t source(messages, store);
    connection_.emplace(messages, &source);
    if (!connection_->IsValid()) throw std::runtime_error(messages.Format(TvXplMsg::fRecurse_k));
  }

  void start() {
    TvXplMsg::MessageList_t messages;
    if (connection_->StartTransaction(messages) != TvDbil::DBIL_SUCCESS) {
      throw std::runtime_error(messages.Format(TvXplMsg::fRecurse_k));
    }
  }

  void execute(const std::string& sql) {
    TvXplMsg::MessageList_t messages;
    TvDbil::DbStatement_t statement(messages, &*connection_);
    if (statement.BindSql(messages, sql.c_str()) != TvDbil::DBIL_SUCCESS ||
        statement.Exec(messages) != TvDbil::DBIL_SUCCESS) {
      throw std::runtime_error(messages.Format(TvXplMsg::fRecurse_k));
    }
  }

 private:
  std::optional<DbConnection_t> connection_;
};

class LockedTest : public FaultTest {
 protected:
  void SetUp() override {
    FaultTest::SetUp();
    if (!store_) return;
    // Nobody waits long.
    plain_ = store_->engine().store();
    if (GetParam() == Engine::Postgres) {
      store_->execute("alter role zntopo set lock_timeout = '20ms'");
    } else {
      disk_->skipWaits();
    }
    if (GetParam() == Engine::SqliteOdbc)
      setenv("TV_TOPO_STORE", (plain_ + "Timeout=1;").c_str(), 1);
    ZNDBTestAccess::forget();
    store_->disconnect();
  }

  std::string plain_;
};

TEST_P(LockedTest, AWriterKeepsNobodyFromReading) {
  Holder writer(plain_);
  writer.start();
  writer.execute("update nwnode set Description = 'new'");
  writer.execute("update state set TopologyReady = 0");
  expectRecovery("a writer began");
}

TEST_P(LockedTest, AWriterKeepsOthersFromWritingUntilHeIsDone) {
  addUpdated(*store_, "updated");
  OpenImpl impl;
  {
    Holder writer(plain_);
    writer.start();
    for (const StoreUpdate& update : storeUpdates()) {
      const std::string column = update.column;
      writer.execute(std::string("update ") + update.table + " set " + column + " = " + column);
    }
    for (const StoreUpdate& update : storeUpdates()) {
      const ZNTopoAPIStatus answer = update.run(impl, ObjID("updated"));
      EXPECT_EQ(answer.getStatus(), ZN_API_SQL_EXEC_ERROR) << update.name();
      EXPECT_THAT(answer.getAuxMsg(), testing::HasSubstr("lock")) << update.name();
    }
    expectNobodyHolds("while somebody writes");
  }
  for (const StoreUpdate& update : storeUpdates()) {
    EXPECT_TRUE(update.run(impl, ObjID("updated")).isOK()) << update.name();
    EXPECT_EQ(update.written(*store_, "updated", ActiveDB), std::to_string(update.value))
        << update.name();
  }
}

TEST_P(LockedTest, EachQuerySaysThatTheStoreIsLockedAndWorksWhenItIsFree) {
  // With nothing in the pool, and again with the connections of before: but a SQLite file that
  // somebody has open can't be locked for him.
  const int rounds = GetParam() == Engine::Postgres ? 2 : 1;
  for (int round = 0; round < rounds; ++round) {
    {
      Holder holder(plain_);
      if (GetParam() == Engine::Postgres) {
        holder.start();
        for (const TableOf& table : describedTables()) {
          holder.execute("lock table " + table.name + " in access exclusive mode");
        }
        expectFailures("while the tables are locked", ZN_API_SQL_EXEC_ERROR);
      } else {
        holder.execute("pragma locking_mode = exclusive");
        holder.execute("update state set TopologyReady = 1");
        expectFailures("while the file is locked");
      }
    }
    expectRecovery("the store is free");
  }
}

TEST_P(LockedTest, AFailureTellsOfTheLock) {
  const bool isPostgres = GetParam() == Engine::Postgres;
  Holder holder(plain_);
  if (isPostgres) holder.start();
  holder.execute(isPostgres ? "lock table nwnode in access exclusive mode"
                            : "pragma locking_mode = exclusive");
  if (!isPostgres) holder.execute("update state set TopologyReady = 1");
  ZNTopoAPIStatus status;
  OpenImpl().getObjIDListFromSQL("select ObjId from nwnode", status);
  if (isPostgres) {
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
    EXPECT_THAT(status.getAuxMsg(), testing::HasSubstr("lock timeout"));
  } else {
    EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
    EXPECT_EQ(status.getAuxMsg(), "ODBCConn - DB Connection Creation Failed\n");
  }
}

ZNTOPO_ON_ENGINES(LockedTest, kEngines);

}  // namespace
}  // namespace zntopo::test
