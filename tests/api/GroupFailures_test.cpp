// What the statements on containers and HSRP groups tell when a step of them fails, and what comes
// back of a request whose parts failed.

#include "tests/support/ApiFixture.h"
#include "tests/support/ObjectTexts.h"

namespace zntopo::test {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

/// A query with a statement of its own.
struct Query {
  const char* name;
  const char* table;
  /// What is told of a column that is not bound.
  const char* columnText;
  void (*ask)(OpenImpl&, ZNTopoAPIStatus&);
};

constexpr Query kQueries[] = {
    {"getIfcEntitiesByWhereClause", "from  nwifc", "Problem binding values for Entity\n",
     [](OpenImpl& impl, ZNTopoAPIStatus& status) {
       std::string clause;
       EXPECT_THAT(*impl.getIfcEntitiesByWhereClause(clause, status, false), IsEmpty());
     }},
    {"getIfcDataByObjID", "from nwifc", "Problem binding values for Ifc Data\n",
     [](OpenImpl& impl, ZNTopoAPIStatus& status) {
       int type = 0;
       int appsID = 0;
       bool isOrdered = false;
       bool cleanUp = false;
       status = impl.getIfcDataByObjID(ObjID("a"), type, appsID, isOrdered, cleanUp);
     }},
    {"getIfcAssocInfosByObjID", "from nwifcasc", "Problem binding values for Ifc Data\n",
     [](OpenImpl& impl, ZNTopoAPIStatus& status) {
       std::list<ZNRefPtr<ZNIfcAssocInfo>> associations;
       status = impl.getIfcAssocInfosByObjID(ObjID("a"), associations);
       EXPECT_THAT(associations, IsEmpty());
     }},
    {"getHSRPInfosByObjIDList", "from hsrpaddress", "Problem binding values for HSRPInfo\n",
     [](OpenImpl& impl, ZNTopoAPIStatus& status) {
       EXPECT_THAT(*impl.getHSRPInfosByObjIDList({ObjID("g")}, status, false), IsEmpty());
     }},
    {"getHSRPInfosByObjIDList of all", "from hsrpaddress", "Problem binding values for HSRPInfo\n",
     [](OpenImpl& impl, ZNTopoAPIStatus& status) {
       EXPECT_THAT(*impl.getHSRPInfosByObjIDList({}, status, true), IsEmpty());
     }},
    {"getHSRPObjIDsByIFAddressObjID", "from hsrpaddress", "Problem binding values for HSRP ObjID\n",
     [](OpenImpl& impl, ZNTopoAPIStatus& status) {
       EXPECT_THAT(*impl.getHSRPObjIDsByIFAddressObjID(ObjID("a"), ZNTopoAPI::HSRP_Address, status),
                   IsEmpty());
     }},
};

class GroupFailuresTest : public ApiTest {
 protected:
  void SetUp() override {
    ApiTest::SetUp();
    forgetContainer();
  }
  void TearDown() override { forgetContainer(); }
  /// Containers outlive the cache's clear().
  static void forgetContainer() { ZNTopoAPI_Impl::cache()->removeIfc(ObjID("a")); }

  void addOfEachKind() {
    store->addEntity("v", "vlan", 4, {{"hasDynamicProperty", 1}});
    store->addEntity("g", "group", 11, {{"hasDynamicProperty", 1}});
    store->insert("nwifc", {{"ObjId", "a"}, {"EntityName", "ifc"}, {"IFCType", 5}});
  }
};
ZNTOPO_ON_ENGINES(GroupFailuresTest, kEngines);

TEST_P(GroupFailuresTest, EachFailedStepOfAStatementHasItsStatusAndText) {
  for (const Query& query : kQueries) {
    const std::tuple<StatementSpy::Step, ZNTopoStatus, std::string> steps[] = {
        {StatementSpy::BindSql, ZN_API_SQL_BIND_STATEMENT_ERROR, "Unable to bind SQL Statement: "},
        {StatementSpy::BindColumn, ZN_API_SQL_BIND_COLUMN_ERROR, query.columnText},
        {StatementSpy::Exec, ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command\n"}};
    for (const auto& [step, code, text] : steps) {
      SCOPED_TRACE(std::string(query.name) + ", " + text);
      StatementSpy spy;
      spy.fail(step, query.table);
      query.ask(impl, status);
      EXPECT_EQ(status.getStatus(), code);
      const std::string sql = step == StatementSpy::BindSql ? spy.statements().back() : "";
      EXPECT_THAT(status.getAuxMsg(), StartsWith(text + sql));
      EXPECT_NE(status.getAuxMsg().find(StatementSpy::kMessage), std::string::npos);
    }
  }
}

TEST_P(GroupFailuresTest, WithoutAConnectionTheHoldersStatusComesBack) {
  breakConnections();
  for (const Query& query : kQueries) {
    query.ask(working, status);
    EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE) << query.name;
  }
  EXPECT_THAT(*working.getVlansByObjIDList({}, notFound, status, true, -1), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
  EXPECT_THAT(*working.getHSRPsByObjIDList({"g"}, notFound, status, false, -1), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
  EXPECT_THAT(*working.getIfcsByType(5, status, -1), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
  EXPECT_THAT(*working.getSubnetsByObjIDList({"s"}, status, false, false, ZNEntity::IPv4, -1),
              IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
  EXPECT_THAT(*working.getSubnetEndPointsByObjIDList({"s"}, status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
  ZNEntity entity;
  EXPECT_THAT(working.getSubnetEndPoints(entity, status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
}

TEST_P(GroupFailuresTest, GroupsWhoseVariablesFailedComeBackAndAreNotCached) {
  addOfEachKind();
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "from userdefvar");
  EXPECT_THAT(idsOf(*impl.getVlansByObjIDList({"v"}, notFound, status, false, -1)),
              ElementsAre("v"));
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_THAT(idsOf(*impl.getHSRPsByObjIDList({}, notFound, status, true, -1)), ElementsAre("g"));
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  ZNRefPtr<ZNVlan> vlan;
  ZNRefPtr<ZNHSRP> group;
  EXPECT_FALSE(ZNTopoAPI_Impl::cache()->inVlanObjIDCache(ObjID("v"), vlan));
  EXPECT_FALSE(ZNTopoAPI_Impl::cache()->inHSRPObjIDCache(ObjID("g"), group));
  EXPECT_FALSE(ZNTopoAPI_Impl::cache()->isAllHSRPInCache());
  EXPECT_TRUE(impl.getVlanByObjID(ObjID("v"), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
}

TEST_P(GroupFailuresTest, ContainersByTypeNeedAReadyStore) {
  addOfEachKind();
  store->execute("update state set TopologyReady = 0");
  EXPECT_THAT(*impl.getIfcsByType(5, status, -1), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
  EXPECT_EQ(status.getAuxMsg(), "Topology DB is not ready\n");
}

TEST_P(GroupFailuresTest, ContainersByTypeComeBackWithWhatTheirPartsGave) {
  addOfEachKind();
  {
    StatementSpy spy;
    spy.fail(StatementSpy::Exec, "from  nwifc");
    EXPECT_THAT(*impl.getIfcsByType(5, status, -1), IsEmpty());
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
    EXPECT_THAT(spy.statements(), SizeIs(1));
  }
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "from nwifcasc");
  const auto containers = impl.getIfcsByType(5, status, -1);
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  ASSERT_THAT(*containers, SizeIs(1));
  EXPECT_EQ(containers->front()->getIfcType(), 5);
}

TEST_P(GroupFailuresTest, TheNullIdentifierEndsTheStatementOfOneGroup) {
  EXPECT_TRUE(impl.getIfcByObjID(ObjID(), status).isNull());
  EXPECT_THAT(status.getStatus(), AnyOf(ZN_API_SQL_BIND_STATEMENT_ERROR, ZN_API_SQL_EXEC_ERROR));
}

}  // namespace
}  // namespace zntopo::test
