#include "tests/support/ApiFixture.h"
#include "tests/support/PostgresRole.h"
#include "tests/support/StoreUpdates.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;

/// The library as users of a store who may change states, or only ask.
class PostgresStateWriterTest : public ApiTest {
 protected:
  void SetUp() override {
    ApiTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    makePostgresRoles(store->engine().store());
    writer.emplace("zntopo_state_writer");
    reader.emplace("zntopo_reader");
    for (const TopoDBType set : {ActiveDB, WorkingDB}) addUpdated(*store, "x", set);
  }

  void TearDown() override {
    ZNDBTestAccess::forget();
    writer.reset();
    reader.reset();
  }

  void useStoreAs(const PostgresLogin& login) {
    setenv("TV_TOPO_STORE", login.store(store->engine().store()).c_str(), 1);
    ZNDBTestAccess::forget();
  }

  OpenImpl& implOf(TopoDBType set) { return set == WorkingDB ? working : impl; }

  std::optional<PostgresLogin> writer;
  std::optional<PostgresLogin> reader;
};
ZNTOPO_ON_ENGINES(PostgresStateWriterTest, kPostgres);

TEST_P(PostgresStateWriterTest, TheStateWriterRunsEachUpdateOnBothTableSets) {
  useStoreAs(*writer);
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    for (const StoreUpdate& update : storeUpdates()) {
      const ZNTopoAPIStatus answer = update.run(implOf(set), ObjID("x"));
      EXPECT_TRUE(answer.isOK()) << update.name() << ": " << answer.getAuxMsg();
      const TopoDBType writtenSet = update.isCommon() ? set : ActiveDB;
      EXPECT_EQ(update.written(*store, "x", writtenSet), std::to_string(update.value))
          << update.name();
    }
  }
}

TEST_P(PostgresStateWriterTest, TheReaderIsDeniedEachOfThem) {
  useStoreAs(*reader);
  for (const TopoDBType set : {ActiveDB, WorkingDB}) {
    for (const StoreUpdate& update : storeUpdates()) {
      const ZNTopoAPIStatus answer = update.run(implOf(set), ObjID("x"));
      EXPECT_FALSE(answer.isOK()) << update.name();
      EXPECT_THAT(answer.getAuxMsg(), HasSubstr("permission denied")) << update.name();
      EXPECT_EQ(update.written(*store, "x", set), "NULL") << update.name();
    }
  }
}

TEST_P(PostgresStateWriterTest, WhatAnIdentifierCarriesBesidesIsNotRun) {
  useStoreAs(*writer);
  for (const char* smuggled : {"x'; drop table nwnode; --", "x'; delete from address; --",
                               "x'; grant all on nwnode to public; select 'x"}) {
    for (const StoreUpdate& update : storeUpdates()) {
      if (!update.isCommon()) continue;
      const ZNTopoAPIStatus answer = update.run(impl, ObjID(smuggled));
      EXPECT_EQ(answer.getStatus(), ZN_API_SQL_BIND_STATEMENT_ERROR) << update.name();
      EXPECT_THAT(answer.getAuxMsg(), HasSubstr("more than one statement")) << update.name();
    }
  }
  EXPECT_EQ(store->count("nwnode"), 1);
  EXPECT_EQ(store->count("address"), 1);
}

}  // namespace
}  // namespace zntopo::test
