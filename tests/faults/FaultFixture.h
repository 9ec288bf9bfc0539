#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/faults/FaultyDisk.h"
#include "tests/faults/LittleNetwork.h"
#include "tests/faults/Questions.h"
#include "tests/support/PostgresServer.h"

/// @file
/// A store that a test can take away and bring back: on PostgreSQL by its server, on SQLite by
/// the disk under it.

namespace zntopo::test {

/// The statuses of a store that can't be reached, whichever step notices.
inline bool isStoreFailure(ZNTopoStatus status) {
  return isStatementFailure(status) || status == ZN_API_DB_CONNECTION_FAILURE ||
         status == ZN_API_SQL_START_TRANSACTION_ERROR;
}

/// What a question may tell when the store goes at any moment. A fetch that fails is not told
/// from the end of the rows, so what was to be found may be missing, too.
inline bool mayTell(const Question& question, ZNTopoStatus status) {
  static const std::set<ZNTopoStatus> always = {
      ZN_API_DB_NOT_READY,    ZN_API_INVALID_ID, ZN_API_OBJ_NOT_EXIST,
      ZN_API_UNKNOWN_IP,      ZN_API_NO_PATH,    ZN_API_PATH_PROCESSING_ERROR,
      ZN_API_EMPTY_OBJID_LIST};
  return status == question.healthy || isStoreFailure(status) || always.count(status) > 0 ||
         (question.hidesConnection && status == ZN_API_INTERNAL_ERROR);
}

/// A store with the little network that can be taken away, until the end of this object.
class FallibleStore {
 public:
  FallibleStore() = default;
  explicit FallibleStore(Engine engine) { make(engine, 0); }
  ~FallibleStore() { end(); }
  FallibleStore(const FallibleStore&) = delete;
  FallibleStore& operator=(const FallibleStore&) = delete;

  /// @param mostBytesOfFile no table of a server grows beyond this; 0 for no limit.
  void make(Engine engine, int moreNodes, long mostBytesOfFile = 0) {
    if (engine == Engine::Postgres) {
      server_.emplace(mostBytesOfFile);
      server_->setEnvironment();
    } else {
      disk_.emplace();
    }
    store_.emplace(engine);
    fillLittleNetwork(*store_, moreNodes);
    ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
  }

  void end() {
    if (store_) bringBack();
    store_.reset();
    server_.reset();
    disk_.reset();
  }

  void takeAway(PostgresServer::Stop how = PostgresServer::Stop::Fast) {
    server_ ? server_->stop(how) : disk_->unplug();
  }

  void bringBack() { server_ ? server_->start() : disk_->repair(); }

  /// The test's own connection is not one that heals.
  void bringBackWithNewConnection() {
    bringBack();
    store_->disconnect();
  }

  /// The servers of tests acknowledge what is not on the disk yet; this one does so no more, on
  /// connections from now on.
  void keepWhatIsAcknowledged() {
    if (store_->isPostgres()) store_->execute("alter role zntopo set synchronous_commit = on");
    ZNDBTestAccess::forget();
  }

  std::optional<PostgresServer> server_;
  std::optional<FaultyDisk> disk_;
  std::optional<TestStore> store_;
};

/// The network in a store of its own, which no other test shares.
class FaultTest : public testing::TestWithParam<Engine>, protected FallibleStore {
 protected:
  void SetUp() override { setUpWith(0); }

  void setUpWith(int moreNodes) {
    ZNTOPO_NEED_ENGINE(GetParam());
    make(GetParam(), moreNodes);
    healthy_.learn();
  }

  void TearDown() override { end(); }

  /// Everything is answered as before, and nobody holds a connection.
  void expectRecovery(const std::string& after) {
    healthy_.expectAll("after " + after);
    expectNobodyHolds(after);
  }

  /// Every question fails at its first statement, if not before it.
  /// @param own what a statement tells that can't be executed.
  void expectFailures(const std::string& when, ZNTopoStatus own = ZN_API_DB_CONNECTION_FAILURE) {
    for (std::size_t i = 0; i < questions().size(); ++i) {
      const Question& question = questions()[i];
      const Answered answered = askCold(question);
      const ZNTopoStatus expected = question.endingOf(healthy_.statements(i).front(), own);
      const bool isTold = isStoreFailure(expected) || question.connects == Connects::First
                              ? isStoreFailure(answered.status) || answered.status == expected
                              : answered.status == expected;
      // Where readiness is asked for first, the answer to that is told.
      const bool isHidden = question.hidesConnection && isStoreFailure(expected) &&
                            answered.status == ZN_API_INTERNAL_ERROR;
      EXPECT_TRUE(isTold || isHidden) << question.name << " " << when << ": " << answered;
      EXPECT_EQ(answered.count, 0u) << question.name << " " << when;
      if (answered.status == ZN_API_SQL_START_TRANSACTION_ERROR) {
        EXPECT_EQ(answered.aux, "Unable to Start a Transaction\n") << question.name;
      }
    }
    expectNobodyHolds(when);
  }

  void expectNobodyHolds(const std::string& after) {
    EXPECT_EQ(ZNDBTestAccess::connectionCount(), static_cast<int>(ZNDBTestAccess::idleCount()))
        << after;
    EXPECT_TRUE(ZNDBTestAccess::isUnlocked()) << after;
  }

  Healthy healthy_;
};

}  // namespace zntopo::test
