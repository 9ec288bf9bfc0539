// What the state row of the store says, and what the cache makes of it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/cache/CachedKinds.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/TestStore.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr const char* kStateSql =
    "select TopologyReady, DISCOCYCLECOMPLETE, MeshState, HSRPState, ContainmentState, "
    "RelatedToState, TOPOLOGYREADYCHANGETIME,DiscoZoneComplete, DiscoZoneInProgress, ChangeTime, "
    "CreateTime, PrevDiscoEndTime from State";

long clockNow = 0;  // what the cache takes for the time

class ReadinessTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    store.emplace(GetParam());
    clockNow = 1000000;
    peer.setClock([] { return clockNow; });
  }

  void setState(int ready, const Value& changeTime) {
    store->setReady();
    store->execute("update state set TopologyReady = " + std::to_string(ready) +
                   ", TOPOLOGYREADYCHANGETIME = " + changeTime.literal());
  }
  ZNTopologyState state() { return cache.getTopologyState(status); }

  /// A stand-in for the state table that fails for the row that it is to give.
  std::string failingView(const std::string& otherColumns) {
    const std::string failing = store->isPostgres() ? "1 / (random() * 0)::int"
                                                    : "abs(-9223372036854775808 + random() * 0)";
    return "create view state as select " + failing + " as TopologyReady, " + otherColumns;
  }

  std::optional<TestStore> store;
  ZNTopoCache cache;
  ZNTopoCachePeer peer{cache};
  ZNTopoAPIStatus status{ZN_API_NO_PATH, "of before\n"};
};

ZNTOPO_ON_ENGINES(ReadinessTest, kMainEngines);

// ---- the state row ----------------------------------------------------------------------------

TEST_P(ReadinessTest, EveryColumnOfTheStateRowIsRead) {
  store->insert("state", {{"CreateTime", 101},
                          {"TOPOLOGYREADYCHANGETIME", 102},
                          {"ChangeTime", 103},
                          {"DISCOCYCLECOMPLETE", 4},
                          {"DiscoZoneComplete", 5},
                          {"DiscoZoneInProgress", 6},
                          {"MeshState", 7},
                          {"HSRPState", 8},
                          {"ContainmentState", 9},
                          {"RelatedToState", 10},
                          {"TopologyReady", 1},
                          {"PrevDiscoEndTime", 112}});
  const ZNTopologyState read = state();
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ("", status.getAuxMsg());
  EXPECT_EQ(ZNTopologyState::READY, read.getTopoState());
  EXPECT_EQ(102, read.getLastTopoReadyChangeTime());
  const ZNTopologyState::CompleteTopologyState row = read.getCompleteTopologyState();
  EXPECT_EQ(101, row.createTime);
  EXPECT_EQ(102, row.topologyReadyTime);
  EXPECT_EQ(103, row.lastChangeTime);
  EXPECT_EQ(4, row.DiscoCycleComplete);
  EXPECT_EQ(5, row.DiscoZoneComplete);
  EXPECT_EQ(6, row.DiscoZoneInProgress);
  EXPECT_EQ(7, row.MeshState);
  EXPECT_EQ(8, row.HSRPState);
  EXPECT_EQ(9, row.ContainmentState);
  EXPECT_EQ(10, row.RelatedToState);
  EXPECT_EQ(1, row.TopologyReady);
  EXPECT_EQ(112, row.prevDiscoEndTime);
}

TEST_P(ReadinessTest, AnyOtherNumberThanOneIsProcessingWithItsTime) {
  for (const int ready : {0, 2, -1}) {
    setState(ready, 500);
    const ZNTopologyState read = state();
    EXPECT_TRUE(status.isOK());
    EXPECT_EQ(ZNTopologyState::TOPOLOGY_INTERNAL_PROCESSING, read.getTopoState());
    EXPECT_EQ(500, read.getLastTopoReadyChangeTime());
    EXPECT_EQ(ready, read.getCompleteTopologyState().TopologyReady);
  }
}

TEST_P(ReadinessTest, ANullInAnyColumnThatMattersIsUnknownWithStatusOk) {
  for (const char* column : {"TopologyReady", "ChangeTime", "DISCOCYCLECOMPLETE", "MeshState",
                             "HSRPState", "ContainmentState", "RelatedToState", "DiscoZoneComplete",
                             "DiscoZoneInProgress", "TOPOLOGYREADYCHANGETIME", "CreateTime"}) {
    store->setReady(500);
    store->execute(std::string("update state set ") + column + " = NULL");
    const ZNTopologyState read = state();
    EXPECT_TRUE(status.isOK()) << column;
    EXPECT_EQ(ZNTopologyState::UNKNOWN, read.getTopoState()) << column;
    EXPECT_EQ(0, read.getLastTopoReadyChangeTime()) << column;
    EXPECT_EQ(0, read.getCompleteTopologyState().createTime) << column;
    EXPECT_EQ(0, read.getCompleteTopologyState().MeshState) << column;
    EXPECT_EQ(ZNTopoCache::ZN_DB_NOT_READY, cache.validate(status)) << column;
    EXPECT_TRUE(status.isOK()) << column;
  }
}

TEST_P(ReadinessTest, ANullEndOfThePreviousDiscoveryIsAFullState) {
  store->setReady(500);
  store->execute("update state set PrevDiscoEndTime = NULL");
  const ZNTopologyState read = state();
  EXPECT_EQ(ZNTopologyState::READY, read.getTopoState());
  EXPECT_EQ(500, read.getLastTopoReadyChangeTime());
  EXPECT_EQ(0, read.getCompleteTopologyState().prevDiscoEndTime);
}

TEST_P(ReadinessTest, AnEmptyStateTableIsUnknownWithStatusOk) {
  const ZNTopologyState read = state();
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(ZNTopologyState::UNKNOWN, read.getTopoState());
  EXPECT_EQ(ZNTopoCache::ZN_DB_NOT_READY, cache.validate(status));
}

TEST_P(ReadinessTest, TheStateIsReadWithoutTheLockOfTheCache) {
  store->setReady(500);
  MutexLockInternal lock(peer.mutex());
  EXPECT_EQ(ZNTopologyState::READY, state().getTopoState());
}

TEST_P(ReadinessTest, TheStatementIsLogged) {
  store->setReady();
  const CapturedLog log(MC_INFO);
  state();
  EXPECT_THAT(log.lines(),
              Contains("getTopologyState SQL String: " + std::string(kStateSql) + " \n"));
}

// The embedded engine refuses such a statement when it is prepared, the server's driver hears of
// it when the statement is executed.
TEST_P(ReadinessTest, AStoreWithoutAStateTableIsToldInTheStatus) {
  store->execute("drop table state");
  const ZNTopoStatus code =
      store->isPostgres() ? ZN_API_SQL_EXEC_ERROR : ZN_API_SQL_BIND_STATEMENT_ERROR;
  const std::string text = std::string(store->isPostgres() ? "Problem Executing SQL Command:"
                                                           : "Unable to bind SQL Statement: ") +
                           kStateSql + "\n";
  const ZNTopologyState read = state();
  EXPECT_EQ(ZNTopologyState::UNKNOWN, read.getTopoState());
  EXPECT_EQ(code, status.getStatus());
  EXPECT_THAT(status.getAuxMsg(), StartsWith(text));
  EXPECT_GT(status.getAuxMsg().size(), text.size() + 1) << "the store's own words are missing";
  EXPECT_EQ(ZNTopoCache::ZN_DB_NOT_READY, cache.validate(status));
  EXPECT_EQ(code, status.getStatus());
}

TEST_P(ReadinessTest, AStateTableThatFailsWhenReadIsToldInTheStatus) {
  store->execute("drop table state");
  store->execute(
      failingView("1 as DISCOCYCLECOMPLETE, 1 as MeshState, 1 as HSRPState, "
                  "1 as ContainmentState, 1 as RelatedToState, "
                  "1 as TOPOLOGYREADYCHANGETIME, 1 as DiscoZoneComplete, "
                  "1 as DiscoZoneInProgress, 1 as ChangeTime, 1 as CreateTime, "
                  "1 as PrevDiscoEndTime"));
  EXPECT_EQ(ZNTopologyState::UNKNOWN, state().getTopoState());
  EXPECT_EQ(ZN_API_SQL_EXEC_ERROR, status.getStatus());
  EXPECT_THAT(status.getAuxMsg(),
              StartsWith("Problem Executing SQL Command:" + std::string(kStateSql) + "\n"));
}

TEST_P(ReadinessTest, AStoreOutOfReachIsToldInTheStatus) {
  ::setenv("TV_TOPO_STORE", "/nowhere/topology.db", 1);
  ZNDBTestAccess::forget();
  const CapturedLog log(MC_CRITICAL);
  EXPECT_EQ(ZNTopologyState::UNKNOWN, state().getTopoState());
  EXPECT_EQ(ZN_API_DB_CONNECTION_FAILURE, status.getStatus());
  EXPECT_EQ("ODBCConn - DB Connection Creation Failed\n", status.getAuxMsg());
  EXPECT_THAT(log.lines(), Contains("Fail to get a connection \n"));
}

// ---- validate ---------------------------------------------------------------------------------

class ValidateTest : public ReadinessTest {
 protected:
  void SetUp() override {
    ReadinessTest::SetUp();
    if (!store) return;
    store->setReady(500);
  }

  /// Brings the cache to a ready model of time 500 and puts objects in it.
  void becomeReady() {
    ASSERT_EQ(ZNTopoCache::ZN_CACHE_RESET, cache.validate(status));
    fill();
  }
  void fill() {
    cache.useNode(Nodes::make(1));
    cache.useIfc(Ifcs::make(1));
  }
  bool isKept() { return holds<Nodes>(cache, 1); }
  ZNTopoCache::ZNCacheStatus validateAfter(long seconds) {
    clockNow += seconds;
    return cache.validate(status);
  }
  void expectCleared() {
    EXPECT_FALSE(holds<Nodes>(cache, 1));
    EXPECT_TRUE(holds<Ifcs>(cache, 1));
  }
};

ZNTOPO_ON_ENGINES(ValidateTest, kMainEngines);

TEST_P(ValidateTest, TheFirstCallGoesToTheStoreAndEmptiesTheCache) {
  EXPECT_FALSE(cache.isModelReady());
  EXPECT_EQ(0, cache.getTimeStamp());
  fill();
  EXPECT_EQ(ZNTopoCache::ZN_CACHE_RESET, cache.validate(status));
  expectCleared();
  EXPECT_TRUE(status.isOK());
  EXPECT_TRUE(cache.isModelReady());
  EXPECT_EQ(500, cache.getTimeStamp());
}

TEST_P(ValidateTest, AReadyModelIsNotLookedAtAgainWithinTheInterval) {
  becomeReady();
  store->setReady(900);
  status = ZNTopoAPIStatus(ZN_API_NO_PATH, "mine");
  EXPECT_EQ(ZNTopoCache::ZN_CACHE_VALID, validateAfter(29));
  EXPECT_TRUE(isKept());
  EXPECT_EQ(500, cache.getTimeStamp());
  EXPECT_EQ(ZN_API_NO_PATH, status.getStatus());  // no read, no reset
}

TEST_P(ValidateTest, AReadyModelOfTheSameTimeKeepsTheCache) {
  becomeReady();
  EXPECT_EQ(ZNTopoCache::ZN_CACHE_VALID, validateAfter(30));
  EXPECT_TRUE(isKept());
  EXPECT_EQ(500, cache.getTimeStamp());
}

TEST_P(ValidateTest, AReadyModelOfAnotherTimeEmptiesTheCache) {
  becomeReady();
  store->setReady(400);
  EXPECT_EQ(ZNTopoCache::ZN_CACHE_RESET, validateAfter(30));
  expectCleared();
  EXPECT_TRUE(cache.isModelReady());
  EXPECT_EQ(400, cache.getTimeStamp());
}

TEST_P(ValidateTest, AModelThatIsNoLongerReadyEmptiesTheCache) {
  becomeReady();
  setState(2, 700);
  EXPECT_EQ(ZNTopoCache::ZN_DB_NOT_READY, validateAfter(30));
  expectCleared();
  EXPECT_TRUE(status.isOK());
  EXPECT_FALSE(cache.isModelReady());
  EXPECT_EQ(700, cache.getTimeStamp());
}

TEST_P(ValidateTest, AStateThatCannotBeReadEmptiesTheCache) {
  becomeReady();
  store->execute("drop table state");
  EXPECT_EQ(ZNTopoCache::ZN_DB_NOT_READY, validateAfter(30));
  expectCleared();
  EXPECT_FALSE(status.isOK());
  EXPECT_FALSE(cache.isModelReady());
  EXPECT_EQ(0, cache.getTimeStamp());
}

TEST_P(ValidateTest, AModelThatBecomesReadyWithItsOldTimeKeepsTheCache) {
  setState(2, 500);
  ASSERT_EQ(ZNTopoCache::ZN_DB_NOT_READY, cache.validate(status));
  fill();
  store->setReady(500);
  for (const long seconds : {0, 29}) {
    EXPECT_EQ(ZNTopoCache::ZN_CACHE_VALID, validateAfter(seconds));
    EXPECT_TRUE(isKept());
  }
}

TEST_P(ValidateTest, AModelThatBecomesReadyWithAnotherTimeEmptiesTheCacheAtOnce) {
  setState(2, 500);
  ASSERT_EQ(ZNTopoCache::ZN_DB_NOT_READY, cache.validate(status));
  fill();
  store->setReady(501);
  EXPECT_EQ(ZNTopoCache::ZN_CACHE_RESET, validateAfter(0));
  expectCleared();
}

TEST_P(ValidateTest, WhileTheModelIsNotReadyEveryCallReadsAndEmpties) {
  setState(0, 500);
  for (int call = 0; call < 3; ++call) {
    fill();
    EXPECT_EQ(ZNTopoCache::ZN_DB_NOT_READY, validateAfter(1));
    expectCleared();
  }
  store->execute("delete from state");
  fill();
  EXPECT_EQ(ZNTopoCache::ZN_DB_NOT_READY, validateAfter(1));
  expectCleared();
  EXPECT_EQ(0, cache.getTimeStamp());
}

TEST_P(ValidateTest, CallsThatKeepComingNeverReadTheStoreAgain) {
  becomeReady();
  store->setReady(900);
  const CapturedLog log(MC_INFO);
  for (int call = 0; call < 100; ++call) {
    EXPECT_EQ(ZNTopoCache::ZN_CACHE_VALID, validateAfter(20));
  }
  EXPECT_TRUE(isKept());
  EXPECT_THAT(log.lines(), Not(Contains(HasSubstr("SQL"))));
  EXPECT_EQ(ZNTopoCache::ZN_CACHE_RESET, validateAfter(30));
}

TEST_P(ValidateTest, AClockThatGoesBackStaysOnTheFastPath) {
  becomeReady();
  store->setReady(900);
  EXPECT_EQ(ZNTopoCache::ZN_CACHE_VALID, validateAfter(-5000));
  EXPECT_TRUE(isKept());
  EXPECT_EQ(ZNTopoCache::ZN_CACHE_VALID, validateAfter(29));
  EXPECT_EQ(ZNTopoCache::ZN_CACHE_RESET, validateAfter(30));
}

TEST_P(ValidateTest, AClearedCacheGoesToTheStoreAtOnce) {
  becomeReady();
  cache.clear(true);
  EXPECT_FALSE(cache.isModelReady());
  EXPECT_EQ(0, cache.getTimeStamp());
  EXPECT_EQ(ZNTopoCache::ZN_CACHE_RESET, validateAfter(1));
  EXPECT_EQ(500, cache.getTimeStamp());
}

TEST_P(ValidateTest, EachOutcomeIsLogged) {
  const CapturedLog log(MC_TRACE_L2);
  const auto lastLine = [&] { return log.lines().back(); };
  cache.validate(status);
  EXPECT_EQ("Cache reset \n", lastLine());
  validateAfter(30);
  EXPECT_EQ("Model is ready\n", lastLine());
  validateAfter(31);
  EXPECT_EQ("Model is ready\n", lastLine());
  setState(2, 500);
  validateAfter(30);
  EXPECT_EQ("TopoDB is not ready !\n", lastLine());
}

TEST_P(ValidateTest, TheRealClockIsUsedOtherwise) {
  ZNTopoCache fresh;
  EXPECT_EQ(ZNTopoCache::ZN_CACHE_RESET, fresh.validate(status));
  store->setReady(900);
  EXPECT_EQ(ZNTopoCache::ZN_CACHE_VALID, fresh.validate(status));
}

// ---- getModelReadiness ------------------------------------------------------------------------

class ModelReadinessTest : public ReadinessTest {
 protected:
  void read() {
    testing::internal::CaptureStderr();
    cache.getModelReadiness(time, ready, status);
    standardError = testing::internal::GetCapturedStderr();
  }

  long time = -1;
  int ready = -1;
  std::string standardError;
};

ZNTOPO_ON_ENGINES(ModelReadinessTest, kMainEngines);

TEST_P(ModelReadinessTest, TheTwoColumnsAreRead) {
  setState(2, 700);
  const CapturedLog log(MC_INFO);
  read();
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(2, ready);
  EXPECT_EQ(700, time);
  EXPECT_EQ("", standardError);
  EXPECT_THAT(log.lines(), Contains("getModelReadiness: Status = 2, TimeStamp = 700 \n"));
}

TEST_P(ModelReadinessTest, AnEmptyStateTableIsNotReady) {
  read();
  EXPECT_EQ(ZN_API_DB_NOT_READY, status.getStatus());
  EXPECT_EQ("No Results received from the State Table, may not be populated!\n",
            status.getAuxMsg());
  EXPECT_EQ(0, ready);
  EXPECT_EQ(0, time);
}

TEST_P(ModelReadinessTest, ANullInEitherColumnIsNotReady) {
  for (const char* column : {"TopologyReady", "TOPOLOGYREADYCHANGETIME"}) {
    store->setReady(700);
    store->execute(std::string("update state set ") + column + " = NULL");
    read();
    EXPECT_EQ(ZN_API_DB_NOT_READY, status.getStatus());
    EXPECT_EQ("Invalid data received from the state table of model.\n", status.getAuxMsg());
    EXPECT_EQ(0, ready);
    EXPECT_EQ(0, time);
  }
}

// The server's driver hears of a statement that can't be prepared when it is executed.
class RefusedReadinessTest : public ModelReadinessTest {};

ZNTOPO_ON_ENGINES(RefusedReadinessTest, kSqlite);

TEST_P(RefusedReadinessTest, AStatementThatIsRefusedIsToldOnStandardErrorToo) {
  store->execute("drop table state");
  const CapturedLog log(MC_CRITICAL);
  read();
  EXPECT_EQ(ZN_API_SQL_BIND_STATEMENT_ERROR, status.getStatus());
  EXPECT_EQ("Unable to obtain model readiness information, unable to bind sql!\n",
            status.getAuxMsg());
  EXPECT_THAT(standardError, StartsWith("Errors: "));
  EXPECT_GT(standardError.size(), 12u) << "the store's own words are missing";
  EXPECT_THAT(log.lines(), Contains("Unable to obtain model readiness statistics. Impact to Cache! "
                                    "The statement was null. \n"));
  EXPECT_EQ(0, ready);
  EXPECT_EQ(0, time);
}

TEST_P(ModelReadinessTest, AnExecutionThatFailsIsToldOnStandardErrorToo) {
  store->execute("drop table state");
  store->execute(failingView("1 as TopologyReadyChangeTime"));
  const CapturedLog log(MC_CRITICAL);
  read();
  EXPECT_EQ(ZN_API_SQL_EXEC_ERROR, status.getStatus());
  EXPECT_EQ("Unable to obtain model readiness information, unable to exec sql!\n",
            status.getAuxMsg());
  EXPECT_THAT(standardError, StartsWith("Errors: "));
  EXPECT_GT(standardError.size(), 12u) << "the store's own words are missing";
  // The engines tell this failure by different codes of their own.
  EXPECT_THAT(log.lines(),
              Contains(testing::MatchesRegex("Unable to obtain model readiness statistics. Impact "
                                             "to Cache! Error: ([2-9]|1[0-2])\n")));
  EXPECT_EQ(0, ready);
  EXPECT_EQ(0, time);
}

TEST_P(ModelReadinessTest, AStoreOutOfReachIsToldInTheStatus) {
  ::setenv("TV_TOPO_STORE", "/nowhere/topology.db", 1);
  ZNDBTestAccess::forget();
  const CapturedLog log(MC_CRITICAL);
  read();
  EXPECT_EQ(ZN_API_DB_CONNECTION_FAILURE, status.getStatus());
  EXPECT_EQ("", standardError);
  EXPECT_THAT(log.lines(), Contains("Fail to get a connection \n"));
  EXPECT_EQ(0, ready);
  EXPECT_EQ(0, time);
}

}  // namespace
}  // namespace zntopo::test
