#include "tests/support/ApiFixture.h"
#include "tests/support/PostgresRole.h"

namespace zntopo::test {
namespace {

/// Names that carry more than a name into a statement, each in another way.
constexpr const char* kSmuggled[] = {
    "'; DROP TABLE nwnode; --",
    "'; DELETE FROM nwnode; --",
    "'; UPDATE nwnode SET SNMPState = 7; --",
    "x' union select ObjId from nwnode; TRUNCATE nwnode CASCADE; --",
    "x'; GRANT ALL ON nwnode TO PUBLIC; select 'x",
    "x';\nCREATE TABLE smuggled (a int); --.example.net",
    "$$'; DROP TABLE nwnode; --$$",
    "/*'; DROP TABLE nwnode; --*/",
};

/// The library as a user of a store in which it may only ask.
class PostgresReaderTest : public ApiTest {
 protected:
  void SetUp() override {
    ApiTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    makePostgresRoles(store->engine().store());
    login_.emplace("zntopo_reader");
    for (const TopoDBType set : {ActiveDB, WorkingDB}) fill(set);
    useStore(reader());
  }

  void TearDown() override {
    ZNDBTestAccess::forget();
    login_.reset();
  }

  std::string reader() const { return login_->store(store->engine().store()); }

  static void useStore(const std::string& text) {
    setenv("TV_TOPO_STORE", text.c_str(), 1);
    ZNDBTestAccess::forget();
  }

  /// Two nodes on a wire, with an address each.
  void fill(TopoDBType set) {
    for (const int n : {1, 2}) {
      const std::string number = std::to_string(n);
      store->addNode(uuid(n), "edge-" + number, {{"PubV4ManagementAdd", "10.0.0." + number}}, set);
      store->addInterface(uuid(n, 'b'), uuid(n), "eth0", {{"isL2Connected", 1}}, set);
      store->addAddress(uuid(n, 'c'), uuid(n, 'b'), uuid(n), "10.0.0." + number, {}, set);
    }
    store->addLink(uuid(1, 'b'), uuid(2, 'b'), uuid(1), uuid(2), {}, set);
    store->addLink(uuid(2, 'b'), uuid(1, 'b'), uuid(2), uuid(1), {}, set);
  }

  /// The name of the node that a name finds, empty for none.
  std::string nameOf(const std::string& name, TopoDBType set = ActiveDB) {
    const auto node = ZNTopoAPI(set).getNodeByName(name, status, -1);
    return node.isNull() ? "" : node->getName();
  }

  /// What a smuggled statement would have changed.
  std::string traces() {
    return store
        ->value(
            "select count(*) || ' nodes, ' || count(SNMPState) || ' changed, ' ||"
            " (select count(*) from pg_tables where schemaname = 'public') || ' tables, ' ||"
            " (select count(*) from pg_largeobject_metadata) || ' objects, ' ||"
            " (select count(*) from pg_class, unnest(relacl) entry"
            "  where relname = 'nwnode' and entry::text like '=%') || ' grants' from nwnode")
        .value();
  }

  std::optional<PostgresLogin> login_;
};
ZNTOPO_ON_ENGINES(PostgresReaderTest, kPostgres);

TEST_P(PostgresReaderTest, TheStateAndTheNodesAreRead) {
  EXPECT_EQ(nameOf("edge-1"), "edge-1");
  EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
  EXPECT_EQ(nameOf("10.0.0.2"), "edge-2");
  EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
  EXPECT_EQ(nameOf("edge-2", WorkingDB), "edge-2");
  EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
}

TEST_P(PostgresReaderTest, NeighboursAreFound) {
  const auto links = ZNTopoAPI().getNodeNeighbors("edge-1", status, 1, 10);
  EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
  ASSERT_TRUE(links);
  EXPECT_FALSE(links->empty());
}

TEST_P(PostgresReaderTest, ASecondStatementInANameIsRefusedAndNotRun) {
  const std::string before = traces();
  EXPECT_EQ(before, "2 nodes, 0 changed, 34 tables, 0 objects, 0 grants");
  for (const char* name : kSmuggled) {
    // Even the owner's connection does not carry a second statement.
    for (const std::string& user : {reader(), store->engine().store()}) {
      useStore(user);
      EXPECT_EQ(nameOf(name), "") << name;
      EXPECT_EQ(status.getStatus(), ZN_API_SQL_BIND_STATEMENT_ERROR) << name << status.getAuxMsg();
      EXPECT_THAT(status.getAuxMsg(), testing::HasSubstr("more than one statement")) << name;
      EXPECT_EQ(traces(), before) << name;
    }
  }
}

TEST_P(PostgresReaderTest, AConditionInANameLeavesNothingBehind) {
  const std::string before = traces();
  for (const char* name :
       {"x' or lo_create(4711) > 0 or 'x' = '", "x' or lo_creat(-1) > 0 or 'x' = '",
        "x' or lo_from_bytea(4712, 'x') > 0 or 'x' = '"}) {
    EXPECT_EQ(nameOf(name), "") << name;
    EXPECT_TRUE(status.getStatus() == ZN_API_SQL_BIND_STATEMENT_ERROR ||
                status.getStatus() == ZN_API_SQL_EXEC_ERROR)
        << name << status.getAuxMsg();
    EXPECT_THAT(status.getAuxMsg(), testing::HasSubstr("permission denied for function")) << name;
    EXPECT_EQ(traces(), before) << name;
  }
  useStore(store->engine().store());
  nameOf("x' or lo_creat(-1) > 0 or 'x' = '");
  EXPECT_NE(traces(), before) << "where nothing denies it the condition does its work";
}

TEST_P(PostgresReaderTest, WhatWouldReachTheServerIsDeniedThere) {
  const std::string before = traces();
  for (const char* name : kSmuggled) {
    // As the library writes it, through a client that takes several statements.
    const std::string sql = std::string("select objID from nwnode where entityname like '") + name;
    EXPECT_FALSE(psqlAccepts(reader(), sql)) << name;
    EXPECT_EQ(traces(), before) << name;
  }
  EXPECT_TRUE(psqlAccepts(store->engine().store(),
                          "select objID from nwnode where entityname like ''; "
                          "UPDATE nwnode SET SNMPState = 7; --%'"))
      << "the way of the smuggled statements leads to the server";
  EXPECT_NE(traces(), before);
}

}  // namespace
}  // namespace zntopo::test
