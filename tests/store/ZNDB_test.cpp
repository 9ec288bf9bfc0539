#include "zntopo/store/ZNDB.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <new>
#include <set>
#include <thread>
#include <vector>

#include "tests/support/CapturedLog.h"
#include "tests/support/TestStore.h"
#include "zntopo/store/ODBCConn.h"

namespace {

/// While set, allocations that may give nothing give nothing.
std::atomic<bool> memoryIsOut = false;

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  if (memoryIsOut) return nullptr;
  try {
    return ::operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

/// Runs a body in several threads at once.
template <typename Body>
void inThreads(int count, const Body& body) {
  std::vector<std::thread> threads;
  threads.reserve(count);
  for (int i = 0; i < count; ++i) threads.emplace_back([&body, i] { body(i); });
  for (std::thread& thread : threads) thread.join();
}

class ZNDBTest : public testing::Test {
 protected:
  ZNDB* pool() {
    ZNDBInitStatus status = ZN_DB_INIT_FAILURE;
    return ZNDB::getInstance(status);
  }
  ZNDBConnection* borrow() {
    ZNDBConnStatus status = ZN_DB_CONN_FAILURE;
    ZNDBConnection* const conn = pool()->getConnection(status);
    EXPECT_EQ(status, ZN_DB_CONN_SUCCESS);
    return conn;
  }

  TestStore store_;
};

TEST_F(ZNDBTest, ThePoolIsMadeOnFirstUse) {
  EXPECT_FALSE(ZNDB::isInitialized());
  ZNDBInitStatus status = ZN_DB_INIT_FAILURE;
  EXPECT_NE(ZNDB::getInstance(status), nullptr);
  EXPECT_EQ(status, ZN_DB_INIT_SUCCESS);
  EXPECT_TRUE(ZNDB::isInitialized());
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 0);
}

TEST_F(ZNDBTest, GetInstanceASecondTimeGivesTheSamePoolWithSuccess) {
  ZNDB* const first = pool();
  ZNDBInitStatus status = ZN_DB_INIT_FAILURE;
  EXPECT_EQ(ZNDB::getInstance(status), first);
  EXPECT_EQ(status, ZN_DB_INIT_SUCCESS);
}

TEST_F(ZNDBTest, InitASecondTimeIsADuplicate) {
  ZNDBInitStatus status = ZN_DB_INIT_FAILURE;
  EXPECT_EQ(ZNDB::init(status), ZN_DB_INIT_SUCCESS);
  EXPECT_EQ(status, ZN_DB_INIT_SUCCESS);
  ZNDB* const first = pool();
  EXPECT_EQ(ZNDB::init(status), ZN_DB_INIT_DUPLICATE);
  EXPECT_EQ(status, ZN_DB_INIT_DUPLICATE);
  EXPECT_EQ(pool(), first);
}

TEST_F(ZNDBTest, InitLogsItsEntryAndItsOutcome) {
  const CapturedLog log;
  ZNDBInitStatus status = ZN_DB_INIT_FAILURE;
  ZNDB::init(status);
  ZNDB::init(status);
  EXPECT_THAT(
      log.lines(),
      ElementsAre("Entering ZNDB::init() \n", "Exiting ZNDB::init() with ZN_TOPO_INIT_SUCCESS\n",
                  "Entering ZNDB::init() \n", "Exiting ZNDB::init() with INIT_DUPLICATE \n"));
}

TEST_F(ZNDBTest, WithoutMemoryThereIsNoPool) {
  const CapturedLog log;
  ZNDBInitStatus status = ZN_DB_INIT_SUCCESS;
  memoryIsOut = true;
  ZNDB* const none = ZNDB::getInstance(status);
  memoryIsOut = false;
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(status, ZN_DB_INIT_FAILURE);
  EXPECT_THAT(log.lines(), ElementsAre("Entering ZNDB::init() \n", "unable to create instance\n",
                                       "Exiting ZNDB::init() with ZN_DB_INIT_FAILURE \n"));
}

TEST_F(ZNDBTest, WithoutAPoolAHolderSaysSo) {
  const CapturedLog log(MC_CRITICAL);
  memoryIsOut = true;
  ODBCConn holder;
  memoryIsOut = false;
  EXPECT_THAT(log.lines(), Contains("ODBCConn - Failure to initialize DB! \n"));
  EXPECT_EQ(holder.getStatus().getStatus(), ZN_API_DB_INIT_FAILURE);
  EXPECT_EQ(holder.getStatus().getAuxMsg(), "");
  EXPECT_EQ(holder.getConnection(), nullptr);
}

TEST_F(ZNDBTest, ThreadsThatRaceThroughTheFirstUseMeetOnePool) {
  std::vector<ZNDB*> pools(8);
  std::vector<ZNDBInitStatus> statuses(8, ZN_DB_INIT_FAILURE);
  inThreads(8, [&](int i) { pools[i] = ZNDB::getInstance(statuses[i]); });
  EXPECT_EQ(std::set<ZNDB*>(pools.begin(), pools.end()).size(), 1U);
  EXPECT_THAT(statuses, testing::Each(ZN_DB_INIT_SUCCESS));
}

TEST_F(ZNDBTest, AConnectionIsLentAgainAndTheCountStays) {
  ZNDBConnection* const conn = borrow();
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 1);
  EXPECT_EQ(ZNDBTestAccess::idleCount(), 0U);
  pool()->releaseConnection(conn);
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 1);
  EXPECT_EQ(ZNDBTestAccess::idleCount(), 1U);
  EXPECT_EQ(borrow(), conn);
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 1);
  pool()->releaseConnection(conn);
}

TEST_F(ZNDBTest, ConnectionsAreReusedFirstInFirstOut) {
  ZNDBConnection* const first = borrow();
  ZNDBConnection* const second = borrow();
  ZNDBConnection* const third = borrow();
  for (ZNDBConnection* conn : {second, third, first}) pool()->releaseConnection(conn);
  EXPECT_EQ(borrow(), second);
  EXPECT_EQ(borrow(), third);
  EXPECT_EQ(borrow(), first);
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 3);
  for (ZNDBConnection* conn : {first, second, third}) pool()->releaseConnection(conn);
}

TEST_F(ZNDBTest, AReturnedConnectionIsNotDuplicatedInTheList) {
  ZNDBConnection* const first = borrow();
  ZNDBConnection* const second = borrow();
  pool()->releaseConnection(first);
  pool()->releaseConnection(second);
  pool()->releaseConnection(first);
  EXPECT_EQ(ZNDBTestAccess::idleCount(), 2U);
  EXPECT_EQ(borrow(), second) << "a second return puts a connection at the back";
  pool()->releaseConnection(second);
}

TEST_F(ZNDBTest, TheHundredAndFirstConnectionIsRefusedAtOnce) {
  std::vector<ZNDBConnection*> lent(100);
  for (ZNDBConnection*& conn : lent) conn = borrow();
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 100);
  ZNDBConnStatus status = ZN_DB_CONN_SUCCESS;
  EXPECT_EQ(pool()->getConnection(status), nullptr);
  EXPECT_EQ(status, ZN_DB_CONN_EXCEEDED);
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 100);
  pool()->releaseConnection(lent.front());
  EXPECT_EQ(borrow(), lent.front());
  for (ZNDBConnection* conn : lent) pool()->releaseConnection(conn);
}

TEST_F(ZNDBTest, AConnectionInATransactionWhoseRollbackWorksIsRetired) {
  ZNDBConnection* const conn = borrow();
  TvXplMsg::MessageList_t messages;
  ASSERT_EQ(conn->StartTransaction(messages), TvDbil::DBIL_SUCCESS);
  pool()->releaseConnection(conn);
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 0);
  EXPECT_EQ(ZNDBTestAccess::idleCount(), 0U);
  EXPECT_EQ(ZNDBTestAccess::lostCount(), 1U);
  EXPECT_FALSE(conn->InTransaction());
  ZNDBConnection* const next = borrow();
  EXPECT_NE(next, conn);
  pool()->releaseConnection(next);
}

TEST_F(ZNDBTest, AConnectionThatWillNotOpenDoesNotCountAndIsKeptReachable) {
  setenv("TV_TOPO_STORE", "/nowhere/at/all.db", 1);
  ZNDBConnStatus status = ZN_DB_CONN_SUCCESS;
  EXPECT_EQ(pool()->getConnection(status), nullptr);
  EXPECT_EQ(status, ZN_DB_CONN_FAILURE);
  EXPECT_EQ(ZNDBTestAccess::connectionCount(), 0);
  EXPECT_EQ(ZNDBTestAccess::lostCount(), 1U);
  EXPECT_TRUE(ZNDBTestAccess::isUnlocked());
}

TEST_F(ZNDBTest, ANullConnectionLeavesThePoolLocked) {
  EXPECT_TRUE((pool(), ZNDBTestAccess::isUnlocked()));
  const CapturedLog log;
  pool()->releaseConnection(nullptr);
  EXPECT_FALSE(ZNDBTestAccess::isUnlocked());
  EXPECT_THAT(log.lines(), Contains("Unable to release null connection! \n"));
}

TEST_F(ZNDBTest, LendingAndReturningAreLogged) {
  pool();
  const CapturedLog log(MC_INFO);
  ZNDBConnection* const conn = borrow();
  pool()->releaseConnection(conn);
  borrow();
  TvXplMsg::MessageList_t messages;
  conn->StartTransaction(messages);
  pool()->releaseConnection(conn);
  EXPECT_THAT(
      log.lines(),
      ElementsAre("Creating new Connection! \n", "Creating Connection \n", "Num DB Connection: 1\n",
                  "Entering ZNDB::releaseConnection() \n",
                  "Placing connection back into the pool \n",
                  "Retreiving Connection from the POOL! \n",
                  "Entering ZNDB::releaseConnection() \n", "InTransaction, Rolling back! \n",
                  "Failed to release connection, removing from pool \n"));
}

TEST_F(ZNDBTest, AFailureToOpenIsLogged) {
  setenv("TV_TOPO_STORE", "/nowhere/at/all.db", 1);
  pool();
  const CapturedLog log(MC_INFO);
  ZNDBConnStatus status = ZN_DB_CONN_SUCCESS;
  pool()->getConnection(status);
  EXPECT_THAT(log.lines(), ElementsAre("Creating new Connection! \n", "Creating Connection \n",
                                       "Error : ZNDBConnection construction failed! \n",
                                       "Creation of Connection Failed!!\n",
                                       "Returning with NULL connection! \n"));
}

TEST_F(ZNDBTest, EightThreadsBorrowWithoutSharingAConnection) {
  std::atomic<int> failures = 0;
  std::vector<std::atomic<ZNDBConnection*>> held(8);
  inThreads(8, [&](int self) {
    for (int i = 0; i < 50; ++i) {
      const ODBCConn holder;
      ZNDBConnection* const mine = holder.getConnection();
      if (!holder.getStatus().isOK()) ++failures;
      for (const auto& other : held) failures += other == mine ? 1 : 0;
      held[self] = mine;
      TvXplMsg::MessageList_t messages;
      TvDbil::DbStatement_t statement(messages, holder.getDbConnection());
      if (statement.BindSql(messages, "select count(*) from nwnode") != TvDbil::DBIL_SUCCESS ||
          statement.Exec(messages) != TvDbil::DBIL_SUCCESS) {
        ++failures;
      }
      held[self] = nullptr;
    }
  });
  EXPECT_EQ(failures, 0);
  EXPECT_LE(ZNDBTestAccess::connectionCount(), 8);
  EXPECT_EQ(static_cast<int>(ZNDBTestAccess::idleCount()), ZNDBTestAccess::connectionCount());
}

}  // namespace
}  // namespace zntopo::test
