// What the interface queries tell when a step of their statements fails.

#include "tests/support/ApiFixture.h"
#include "tests/support/ObjectTexts.h"

namespace zntopo::test {
namespace {

using testing::IsEmpty;
using testing::StartsWith;

/// A query, and what it says of its failed steps.
struct Case {
  const char* name;
  void (*run)(OpenImpl&, ZNTopoAPIStatus&);
  const char* sql;
  const char* column;
  const char* exec;
};

void whereQuery(OpenImpl& impl, ZNTopoAPIStatus& status) {
  EXPECT_THAT(*impl.getInterfacesByWhereQuery(" where 1 = 1", status, 0, {}), IsEmpty());
}
void interfaceIDs(OpenImpl& impl, ZNTopoAPIStatus& status) {
  EXPECT_THAT(*impl.getInterfaceIDsByNodeObjIDList({"n1"}, status), IsEmpty());
}
void meshID(OpenImpl& impl, ZNTopoAPIStatus& status) {
  EXPECT_TRUE(impl.getMeshID("a", status).isNull());
}
void containedInterfaces(OpenImpl& impl, ZNTopoAPIStatus& status) {
  EXPECT_THAT(impl.getInterfacesByObjID("mesh", status), IsEmpty());
}

constexpr Case kCases[] = {
    {"WhereQuery", whereQuery, "from nwinterface", "Problem binding values for Interface",
     "Problem Executing SQL Command"},
    {"InterfaceIDs", interfaceIDs, "from nwinterface",
     "Problem binding values for getInterfaceIDsByNodeObjIDList", "Problem Executing SQL Command"},
    {"MeshID", meshID, "from containment", "Problem binding values for getMeshID",
     "Problem Executing SQL Command"},
    {"ContainedInterfaces", containedInterfaces, "from containment",
     "Problem binding values for getInterfacesByObjID", "Problem Executing SQL Command"},
};

class InterfaceFailuresTest : public ApiTest {};

TEST_P(InterfaceFailuresTest, AStatementThatIsNotPreparedIsToldWithItsText) {
  for (const Case& query : kCases) {
    StatementSpy spy;
    spy.fail(StatementSpy::BindSql, query.sql);
    query.run(impl, status);
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_BIND_STATEMENT_ERROR) << query.name;
    const std::string sql = spy.statements().back();
    EXPECT_THAT(status.getAuxMsg(), StartsWith("Unable to bind SQL Statement: " + sql + "\n"));
    EXPECT_NE(status.getAuxMsg().find(StatementSpy::kMessage), std::string::npos) << query.name;
  }
}

TEST_P(InterfaceFailuresTest, AColumnThatIsNotBoundIsTold) {
  for (const Case& query : kCases) {
    StatementSpy spy;
    spy.fail(StatementSpy::BindColumn, query.sql);
    query.run(impl, status);
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_BIND_COLUMN_ERROR) << query.name;
    EXPECT_THAT(status.getAuxMsg(), StartsWith(std::string(query.column) + "\n"));
    EXPECT_NE(status.getAuxMsg().find(StatementSpy::kMessage), std::string::npos) << query.name;
  }
}

TEST_P(InterfaceFailuresTest, AStatementThatIsNotExecutedIsTold) {
  for (const Case& query : kCases) {
    StatementSpy spy;
    spy.fail(StatementSpy::Exec, query.sql);
    query.run(impl, status);
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR) << query.name;
    EXPECT_THAT(status.getAuxMsg(), StartsWith(std::string(query.exec) + "\n"));
    EXPECT_NE(status.getAuxMsg().find(StatementSpy::kMessage), std::string::npos) << query.name;
  }
}

TEST_P(InterfaceFailuresTest, WithoutAConnectionTheHoldersStatusComesBack) {
  breakConnections();
  for (const Case& query : kCases) {
    query.run(working, status);
    EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE) << query.name;
    EXPECT_EQ(status.getAuxMsg(), "ODBCConn - DB Connection Creation Failed\n") << query.name;
  }
  EXPECT_THAT(working.getMeshInterfaces("mesh", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
}

TEST_P(InterfaceFailuresTest, AFailedFetchEndsTheRowsWithAGoodStatus) {
  store->addInterface("a", "n1", "a");
  store->addInterface("b", "n1", "b");
  StatementSpy spy;
  spy.fail(StatementSpy::Fetch, "from nwinterface", TvDbil::DBIL_ERROR, 2);
  const auto found = impl.getInterfacesByWhereQuery(" order by a.ObjId", status, 0, {});
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(idsOf(*found), testing::ElementsAre("a"));
}

TEST_P(InterfaceFailuresTest, LookUpsByAddressAndNameReturnTheFailureOfTheirStatement) {
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "select objID");
  EXPECT_TRUE(impl.getInterfaceByIPV4("10.0.0.1", status, -1).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_TRUE(impl.getInterfaceByIfName("eth0", "core", status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
}

TEST_P(InterfaceFailuresTest, MeshInterfacesPassOnTheFailureOfTheirStatement) {
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "from containment");
  EXPECT_THAT(impl.getMeshInterfaces("mesh", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
}

ZNTOPO_ON_ENGINES(InterfaceFailuresTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
