// The store fails while states are written to it.

#include "tests/faults/FaultFixture.h"
#include "tests/support/StoreUpdates.h"

namespace zntopo::test {
namespace {

using Stop = PostgresServer::Stop;

constexpr const char* kID = "updated";

class UpdateFaultsTest : public FaultTest {
 protected:
  void SetUp() override {
    FaultTest::SetUp();
    if (store_) addUpdated(*store_, kID);
  }

  std::string writtenBy(const StoreUpdate& update) {
    return update.written(*store_, kID, ActiveDB);
  }

  /// Each is carried out.
  void expectUpdates(const std::string& when) {
    for (const StoreUpdate& update : storeUpdates()) {
      const ZNTopoAPIStatus answer = update.run(impl_, ObjID(kID));
      EXPECT_TRUE(answer.isOK()) << update.name() << " " << when << ": " << answer.getAuxMsg();
      EXPECT_EQ(writtenBy(update), std::to_string(update.value)) << update.name() << " " << when;
    }
    expectNobodyHolds(when);
  }

  OpenImpl impl_;
};

TEST_P(UpdateFaultsTest, EachUpdateFailsWhileTheStoreIsAwayAndWorksAfterwards) {
  for (const Stop how : {Stop::Fast, Stop::Crash}) {
    expectUpdates("before");
    takeAway(how);
    for (const StoreUpdate& update : storeUpdates()) {
      const ZNTopoAPIStatus answer = update.run(impl_, ObjID(kID));
      EXPECT_TRUE(isStoreFailure(answer.getStatus()))
          << update.name() << ": " << answer.getStatus() << " " << answer.getAuxMsg();
    }
    expectNobodyHolds("while the store is away");
    bringBackWithNewConnection();
    expectUpdates("after the store came back");
  }
  EXPECT_EQ(ZNDBTestAccess::lostCount(), 0U);
}

TEST_P(UpdateFaultsTest, WhatWasAcknowledgedOutlivesACrash) {
  keepWhatIsAcknowledged();
  expectUpdates("before the crash");
  takeAway(Stop::Crash);
  bringBackWithNewConnection();
  for (const StoreUpdate& update : storeUpdates()) {
    // Of several updates of one column the last has it.
    if (std::string(update.member) == "setNWNodeStatus" &&
        update.column != std::string("SNMPState"))
      continue;
    EXPECT_EQ(writtenBy(update), std::to_string(update.value)) << update.name();
  }
}

TEST_P(UpdateFaultsTest, AMissingColumnIsToldWithTheNameOfTheMember) {
  for (const StoreUpdate& update : storeUpdates()) {
    const std::string table = std::string("alter table ") + update.table + " rename column ";
    store_->execute(table + update.column + " to gone");
    const ZNTopoAPIStatus answer = update.run(impl_, ObjID(kID));
    EXPECT_TRUE(isStatementFailure(answer.getStatus())) << update.name() << answer.getStatus();
    EXPECT_THAT(answer.getAuxMsg(),
                testing::HasSubstr(update.isCommon() ? update.member : "update nwifcasc"))
        << update.name();
    store_->execute(table + "gone to " + update.column);
    EXPECT_TRUE(update.run(impl_, ObjID(kID)).isOK()) << update.name();
  }
  expectNobodyHolds("with every column in its place");
}

ZNTOPO_ON_ENGINES(UpdateFaultsTest, kEngines);

/// The server ends the connection just before a statement.
using UpdateCutTest = UpdateFaultsTest;

TEST_P(UpdateCutTest, AnUpdateWhoseConnectionBreaksWritesNothingAndTheNextOneWorks) {
  for (const StoreUpdate& update : storeUpdates()) {
    const std::string before = writtenBy(update);
    {
      StatementSpy spy;
      spy.before(StatementSpy::Exec, "update ", 1, [this] {
        store_->value(
            "select count(pg_terminate_backend(pid, 5000)) from pg_stat_activity "
            "where datname = current_database() and pid <> pg_backend_pid()");
      });
      const ZNTopoAPIStatus answer = update.run(impl_, ObjID(kID));
      EXPECT_TRUE(isStatementFailure(answer.getStatus())) << update.name() << answer.getStatus();
    }
    EXPECT_EQ(writtenBy(update), before) << update.name();
    EXPECT_TRUE(update.run(impl_, ObjID(kID)).isOK()) << update.name();
    expectNobodyHolds(update.name());
  }
}

ZNTOPO_ON_ENGINES(UpdateCutTest, kPostgres);

}  // namespace
}  // namespace zntopo::test
