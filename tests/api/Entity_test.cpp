// Entities of any kind by a condition, and by an identifier of an unknown kind.

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/ObjectTexts.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class EntityTest : public ApiTest {
 protected:
  auto where(std::string clause, bool loadUDV = true) {
    return impl.getEntitiesByWhereClause(clause, status, loadUDV);
  }
  void addVariable(const std::string& owner, const std::string& name) {
    store->insert("userdefvar",
                  {{"ObjID", owner}, {"VarName", name}, {"VarValType", 3}, {"StrVal", "x"}});
  }

  ZNTopoAPI api;
};
ZNTOPO_ON_ENGINES(EntityTest, kEngines);

// ---- by a condition ---------------------------------------------------------------------------

TEST_P(EntityTest, AnEntityHasWhatItsRowHolds) {
  store->addEntity("s", "subnet", 7,
                   {{"IPLevel", 6},
                    {"QRMObjId", "17"},
                    {"Description", "text"},
                    {"ZoneNumber", "zone"},
                    {"Status", 3},
                    {"V6CompoundStatus", 4},
                    {"V6GlobalStatus", 5},
                    {"V6SiteStatus", 6},
                    {"StatusChangeTimeUTC", 7},
                    {"CreateTimeUTC", 8},
                    {"ChangeTimeUTC", 9},
                    {"RouteDistinguisher", 10}});
  const auto found = where(" ObjID = 's'");
  EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
  ASSERT_THAT(*found, SizeIs(1));
  const ZNEntity& entity = *found->front();
  EXPECT_EQ(entity.getObjID(), ObjID("s"));
  EXPECT_EQ(entity.getName(), "subnet");
  EXPECT_EQ(entity.getEntityType(), E_Subnet);
  EXPECT_EQ(entity.getIPLevel(), ZNEntity::IPv6);
  EXPECT_EQ(entity.getQRMObjID(), ObjID("17"));
  EXPECT_EQ(entity.getDescription(), "text");
  EXPECT_EQ(entity.getZoneNumber(), "zone");
  EXPECT_EQ(entity.getV6OverallStatus().getStatus(), 4);
  EXPECT_EQ(entity.getV6GlobalStatus().getStatus(), 5);
  EXPECT_EQ(entity.getStatus(ZNEntity::IPv6SiteLocal).getStatus(), 6);
  EXPECT_EQ(entity.getStatusChangeTime(), 7);
  EXPECT_EQ(entity.getCreateTime(), 8);
  EXPECT_EQ(entity.getChangeTime(), 9);
  EXPECT_EQ(entity.getRD(), 10);
  EXPECT_EQ(entity.getDBType(), ActiveDB);
}

TEST_P(EntityTest, WhatIsAbsentHasItsDefault) {
  store->addEntity("v", "vlan", 4, {{"Status", 3}});
  const auto found = where(" ObjID = 'v'");
  ASSERT_THAT(*found, SizeIs(1));
  const ZNEntity& entity = *found->front();
  EXPECT_EQ(entity.getOverallStatus().getStatus(), 3);
  EXPECT_EQ(entity.getQRMObjID(), ObjID(0));
  EXPECT_EQ(entity.getDescription(), "");
  EXPECT_EQ(entity.getIPLevel(), ZNEntity::IPv4);
  EXPECT_EQ(entity.getRD(), 0);
  EXPECT_EQ(entity.getEntityType(), E_Vlan);
}

TEST_P(EntityTest, AnEmptyClauseFindsNothingAndLeavesTheStatus) {
  store->addEntity("v", "vlan", 4);
  const CapturedLog log;
  ZNTopoAPIStatus good;
  std::string clause;
  EXPECT_THAT(*impl.getEntitiesByWhereClause(clause, good, true), IsEmpty());
  EXPECT_TRUE(good.isOK());
  EXPECT_THAT(*where(""), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  EXPECT_THAT(log.lines(), Contains("Where Clause is empty !\n"));
}

TEST_P(EntityTest, ARowWithoutANameEndsTheReadAndNothingIsLoaded) {
  store->addEntity("a", "first", 7, {{"hasDynamicProperty", 1}, {"hasAddress", 1}});
  store->addEntity("b", "", 7);
  store->addEntity("c", "last", 7);
  addVariable("a", "site");
  const CapturedLog log;
  const StatementSpy spy;
  const auto found = where(" 1 = 1 order by ObjId");
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(idsOf(*found), ElementsAre("a"));
  EXPECT_THAT(spy.statements(), SizeIs(1));
  EXPECT_THAT(log.lines(),
              testing::IsSupersetOf(std::vector<std::string>{
                  "Received NULL values for critical data\n", "Unable to create Entity!\n",
                  "Creating Entity: a : first \n", "SQL : " + spy.statements().front() + " \n"}));
}

TEST_P(EntityTest, VariablesAndAddressesAreLoadedForThoseThatHaveSome) {
  store->addEntity("a", "first", 7, {{"hasDynamicProperty", 1}, {"hasAddress", 1}});
  store->addEntity("b", "second", 7, {{"hasDynamicProperty", 0}, {"hasAddress", nullptr}});
  addVariable("a", "site");
  addVariable("b", "not asked for");
  store->addAddress("adr", "a", "n", "10.0.0.0");
  const StatementSpy spy;
  const auto found = where(" 1 = 1 order by ObjId");
  ASSERT_THAT(*found, SizeIs(2));
  EXPECT_THAT(spy.statements(), SizeIs(3));
  EXPECT_EQ(found->front()->getUserDefVarByName("site").getValue().getStrVal(), "x");
  const auto addresses = found->front()->getAddresses();
  ASSERT_THAT(addresses, SizeIs(1));
  EXPECT_EQ(addresses.front()->getAddressID(), ObjID("adr"));
  EXPECT_THAT(spy.statements(), SizeIs(3));
  EXPECT_NE(found->back()->getUserDefVarByName("not asked for").getValue().getValType(),
            VarValue::VT_Str);
}

TEST_P(EntityTest, WithoutTheWishForThemVariablesAreNotLoaded) {
  store->addEntity("a", "first", 7, {{"hasDynamicProperty", 1}});
  addVariable("a", "site");
  const StatementSpy spy;
  const auto found = where(" ObjID = 'a'", false);
  EXPECT_THAT(spy.statements(), SizeIs(1));
  EXPECT_NE(found->front()->getUserDefVarByName("site").getValue().getValType(), VarValue::VT_Str);
}

TEST_P(EntityTest, ALoaderThatFailsIsToldAndTheEntitiesComeBack) {
  store->addEntity("a", "first", 7, {{"hasDynamicProperty", 1}, {"hasAddress", 1}});
  for (const auto& [table, line] :
       {std::pair("from userdefvar", "Failed in getUserDefVarsByObjIDLIst \n"),
        std::pair("from address", "Failed in getAddrByAssociatedObjIDList \n")}) {
    const CapturedLog log;
    StatementSpy spy;
    spy.fail(StatementSpy::Exec, table);
    EXPECT_THAT(*where(" ObjID = 'a'"), SizeIs(1));
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR) << table;
    EXPECT_THAT(log.lines(), Contains(line));
  }
}

TEST_P(EntityTest, EachFailedStepHasItsStatusAndText) {
  const std::tuple<StatementSpy::Step, ZNTopoStatus, std::string> cases[] = {
      {StatementSpy::BindSql, ZN_API_SQL_BIND_STATEMENT_ERROR, "Unable to bind SQL Statement: sel"},
      {StatementSpy::BindColumn, ZN_API_SQL_BIND_COLUMN_ERROR,
       "Problem binding values for Entity\n"},
      {StatementSpy::Exec, ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command\n"}};
  for (const auto& [step, code, text] : cases) {
    StatementSpy spy;
    spy.fail(step, "nwentity");
    EXPECT_THAT(*where(" ObjID = 'a'"), IsEmpty());
    EXPECT_EQ(status.getStatus(), code);
    EXPECT_THAT(status.getAuxMsg(), StartsWith(text));
    EXPECT_NE(status.getAuxMsg().find(StatementSpy::kMessage), std::string::npos);
  }
  breakConnections();
  std::string clause = " ObjID = 'a'";
  working.getEntitiesByWhereClause(clause, status, true);
  EXPECT_EQ(status.getStatus(), ZN_API_DB_CONNECTION_FAILURE);
}

TEST_P(EntityTest, TheWorkingTablesAreReadByTheirOwnNames) {
  store->addEntity("w", "waiting", 7, {}, WorkingDB);
  std::string clause = " ObjID = 'w'";
  const auto found = working.getEntitiesByWhereClause(clause, status, true);
  ASSERT_THAT(*found, SizeIs(1));
  EXPECT_EQ(found->front()->getDBType(), WorkingDB);
  EXPECT_THAT(*where(clause), IsEmpty());
}

}  // namespace
}  // namespace zntopo::test
