// What VLANs, containers and HSRP groups hold, and what is left of them when a part fails.

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/ObjectTexts.h"
#include "zntopo/api/detail/GroupSql.h"

namespace zntopo::test {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using testing::UnorderedElementsAre;

class GroupContentsTest : public ApiTest {
 protected:
  static ZNTopoCache& cache() { return *ZNTopoAPI_Impl::cache(); }
  void SetUp() override {
    ApiTest::SetUp();
    removeIfcs();
  }
  void TearDown() override { removeIfcs(); }
  /// Containers outlive the cache's clear().
  static void removeIfcs() {
    for (const char* id : {"a", "b", "c"}) cache().removeIfc(ObjID(id));
  }
  bool isIfcCached(const std::string& id) {
    ZNRefPtr<ZNIfc> found;
    return cache().inIfcObjIDCache(ObjID(id), found);
  }

  void addVlan(const std::string& id, const std::string& number) {
    store->addEntity(id, id, 4, {{"hasDynamicProperty", 1}});
    store->insert("nwvlan", {{"ObjId", id}});
    store->insert("userdefvar",
                  {{"ObjID", id}, {"VarName", "VlanId"}, {"VarValType", 3}, {"StrVal", number}});
  }
  void addVlanMember(const std::string& vlan, const std::string& node, const std::string& port) {
    store->addInterface(port, node, port, {{"NodeName", "name of " + node}});
    store->insert("containment", {{"ContainerObjID", vlan},
                                  {"ContainedObjID", port},
                                  {"ContainerType", 4},
                                  {"ContainedNodeObjId", node}});
  }
  void addIfc(const std::string& id, const Values& more = {}) {
    Values values = {{"ObjId", id}, {"EntityName", "ifc " + id}};
    for (const auto& [name, value] : more) values.insert_or_assign(name, value);
    store->insert("nwifc", values);
  }
  void addIfcMember(const std::string& ifc, const std::string& node, const std::string& port,
                    int number) {
    store->addInterface(port, node, port);
    store->insert("nwifcctm", {{"ContainerObjId", ifc},
                               {"InterfaceObjId", port},
                               {"NodeObjId", node},
                               {"SequenceNumber", number}});
  }
  void addMember(const std::string& group, const std::string& address, int state,
                 const Values& more = {}) {
    Values values = {{"ObjID", group}, {"AddressID", address}, {"AddressIfObjID", "if-" + address},
                     {"state", state}, {"HSRPPriority", 100},  {"HSRPNumber", 7}};
    for (const auto& [name, value] : more) values.insert_or_assign(name, value);
    store->insert("hsrpaddress", values);
  }
  /// What the log tells of the loading of containers, without the operations' own entries.
  static std::vector<std::string> linesOfIfcs(const CapturedLog& log) {
    std::vector<std::string> lines;
    for (const std::string& line : log.lines()) {
      const bool isStep = line.rfind("getIfcsBy", 0) == 0 || line.rfind("Cannot FOUND", 0) == 0;
      if (isStep) lines.push_back(line);
    }
    return lines;
  }
  auto ifcs(const std::set<ObjID>& ids, bool all = false) {
    return impl.getIfcsByObjIDList(ids, notFound, status, all, -1);
  }
  auto hsrps(const std::set<ObjID>& ids, bool all = false) {
    return impl.getHSRPsByObjIDList(ids, notFound, status, all, -1);
  }

  ZNTopoAPI api;
};
ZNTOPO_ON_ENGINES(GroupContentsTest, kEngines);

// ---- VLANs ------------------------------------------------------------------------------------

TEST_P(GroupContentsTest, AVlanHasItsNumberAndItsMembersByNode) {
  addVlan("v", "12");
  addVlanMember("v", "n1", "p1");
  addVlanMember("v", "n1", "p2");
  addVlanMember("v", "n2", "p3");
  const auto vlan = api.getVlanByObjID(ObjID("v"), status);
  ASSERT_FALSE(vlan.isNull()) << status.getAuxMsg();
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(vlan->getEntityType(), E_Vlan);
  EXPECT_EQ(vlan->getVlanID(), ObjID("12"));
  ASSERT_THAT(vlan->getVlanInfoList(), SizeIs(2));
  std::map<std::string, std::size_t> members;
  for (const ZNVlanInfo& info : vlan->getVlanInfoList()) {
    members[info.getNodeName()] = info.getVlanIFInfoList().size();
  }
  EXPECT_THAT(members,
              ElementsAre(testing::Pair("name of n1", 2u), testing::Pair("name of n2", 1u)));
  EXPECT_EQ(api.getVlanByObjID(ObjID("v"), status), vlan);
}

TEST_P(GroupContentsTest, AVlansNumberIsAVariableThatIsALongOrAText) {
  const std::tuple<const char*, int, ObjID> numbers[] = {{"long", VarValue::VT_Long, ObjID(12)},
                                                         {"short", VarValue::VT_Short, ObjID()}};
  for (const auto& [id, type, number] : numbers) {
    store->addEntity(id, id, 4, {{"hasDynamicProperty", 1}});
    store->insert("userdefvar",
                  {{"ObjID", id}, {"VarName", "VlanId"}, {"VarValType", type}, {"IntVal", 12}});
    EXPECT_EQ(api.getVlanByObjID(ObjID(id), status)->getVlanID(), number) << id;
  }
  store->addEntity("without", "v", 4);
  EXPECT_TRUE(api.getVlanByObjID(ObjID("without"), status)->getVlanID().isNull());
}

TEST_P(GroupContentsTest, LoadedAllAtOnceAVlanHasItsVariablesAndNoNumber) {
  addVlan("v", "12");
  addVlanMember("v", "n1", "p1");
  const auto vlans = api.getVlansByObjIDList({}, notFound, status, true, -1);
  ASSERT_THAT(*vlans, SizeIs(1));
  EXPECT_TRUE(status.isOK()) << status.getAuxMsg();
  EXPECT_TRUE(vlans->front()->getVlanID().isNull());
  EXPECT_EQ(vlans->front()->getUserDefVarByName("VlanId").getValue().getStrVal(), "12");
  EXPECT_THAT(vlans->front()->getVlanInfoList(), SizeIs(1));
}

TEST_P(GroupContentsTest, AnUnknownVlanOrContainerIsInvalid) {
  EXPECT_TRUE(api.getVlanByObjID(ObjID("x"), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), ObjID("x").toString() + " is not a valid Vlan\n");
  EXPECT_TRUE(api.getIfcByObjID(ObjID("x"), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), ObjID("x").toString() + " is not a valid Ifc\n");
  EXPECT_TRUE(api.getVlanByObjID(ObjID(), status).isNull());
  EXPECT_THAT(status.getStatus(), AnyOf(ZN_API_SQL_BIND_STATEMENT_ERROR, ZN_API_SQL_EXEC_ERROR));
}

TEST_P(GroupContentsTest, VlansWhosePartsFailedComeBackAndAreNotCached) {
  addVlan("v", "12");
  for (const auto& [table, line] :
       {std::pair("containment", "Failed in getVlanInfoByObjIDList \n"),
        std::pair("nwentity b where a.objid", "Failed in getUserDefVarsByObjIDLIst \n")}) {
    const CapturedLog log;
    StatementSpy spy;
    spy.fail(StatementSpy::Exec, table);
    EXPECT_THAT(*api.getVlansByObjIDList({}, notFound, status, true, -1), SizeIs(1));
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR) << table;
    EXPECT_THAT(log.lines(), Contains(line));
    ZNRefPtr<ZNVlan> cached;
    EXPECT_FALSE(cache().inVlanObjIDCache(ObjID("v"), cached));
    EXPECT_FALSE(cache().isAllVlanInCache());
  }
}

// ---- an identifier of an unknown kind ---------------------------------------------------------

TEST_P(GroupContentsTest, AnIdentifierOfAnyKindIsFound) {
  store->addNode("n", "node");
  store->addInterface("i", "n", "port");
  store->addEntity("h", "group", 11);
  store->addEntity("s", "subnet", 7);
  store->addEntity("v", "vlan", 4);
  for (const auto& [id, kind] :
       {std::pair("n", E_Node), std::pair("i", E_Interface), std::pair("h", E_HSRP),
        std::pair("s", E_Subnet), std::pair("v", E_Vlan)}) {
    const auto entity = api.getEntityByObjID(ObjID(id), status);
    ASSERT_FALSE(entity.isNull()) << id;
    EXPECT_TRUE(status.isOK()) << id;
    EXPECT_EQ(entity->getEntityType(), kind);
  }
  EXPECT_TRUE(api.getEntityByObjID(ObjID("x"), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), ObjID("x").toString() + " is not a valid Vlan\n");
}

TEST_P(GroupContentsTest, AnIdentifierIsTriedAsTheLikeliestKindFirst) {
  const std::string operations[] = {"getNodeByObjID", "getInterfaceByObjID", "getHSRPsByObjIDList",
                                    "getSubnetByObjID", "getVlanByObjID"};
  const CapturedLog log;
  api.getEntityByObjID(ObjID("x"), status);
  std::vector<std::string> entered;
  for (const std::string& line : log.lines()) {
    for (const std::string& operation : operations) {
      if (line == "+" + operation + "\n") entered.push_back(operation);
    }
  }
  EXPECT_THAT(entered, testing::ElementsAreArray(operations));
}

// ---- containers -------------------------------------------------------------------------------

TEST_P(GroupContentsTest, AContainerHasItsDataMembersAndAssociations) {
  addIfc("a", {{"Description", "text"},
               {"ZoneNumber", "zone"},
               {"Status", 3},
               {"RouteDistinguisher", 4},
               {"IFCType", 5},
               {"isOrdered", 1},
               {"AppsID", 6}});
  addIfcMember("a", "n1", "p3", 3);
  addIfcMember("a", "n1", "p1", 1);
  addIfcMember("a", "n2", "p2", 2);
  for (const auto& [left, right] :
       {std::pair("a", "b"), std::pair("c", "a"), std::pair("b", "c")}) {
    store->insert("nwifcasc", {{"LeftIFContainerObjID", left},
                               {"RightIFContainerObjID", right},
                               {"RelType", 1},
                               {"LeftIfcType", 2},
                               {"RightIfcType", 3},
                               {"State", 4},
                               {"StateChangeTime", 5},
                               {"Description", "d"},
                               {"ExtraInfo", "e"}});
  }
  const auto ifc = api.getIfcByObjID(ObjID("a"), status);
  ASSERT_FALSE(ifc.isNull()) << status.getAuxMsg();
  EXPECT_EQ(ifc->getEntityType(), E_IfC);
  EXPECT_EQ(ifc->getIPLevel(), ZNEntity::IPv4);
  EXPECT_EQ(ifc->getName(), "ifc a");
  EXPECT_EQ(ifc->getDescription(), "text");
  EXPECT_EQ(ifc->getZoneNumber(), "zone");
  EXPECT_EQ(ifc->getOverallStatus().getStatus(), 3);
  EXPECT_EQ(ifc->getRD(), 4);
  EXPECT_EQ(ifc->getIfcType(), 5);
  EXPECT_TRUE(ifc->isOrdered());
  EXPECT_EQ(ifc->getAppsId(), 6);
  EXPECT_FALSE(ifc->willCleanUpIfEmpty());
  std::vector<std::string> members;
  const auto inOrder = ifc->getAllIfcIFInfosByOrder();
  for (const ZNIfcIFInfo& member : *inOrder) {
    members.push_back(member.getInterfaceObjId().getStrValue());
  }
  EXPECT_THAT(members, ElementsAre("p1", "p2", "p3"));
  ASSERT_THAT(ifc->getAllIfcAssocInfos(), SizeIs(2));
  for (const auto& association : ifc->getAllIfcAssocInfos()) {
    EXPECT_TRUE(association->getLeftIfcId() == ObjID("a") ||
                association->getRightIfcId() == ObjID("a"));
    EXPECT_EQ(association->getIfcRelationType(), 1);
    EXPECT_EQ(association->getLeftIfcType(), 2);
    EXPECT_EQ(association->getRightIfcType(), 3);
    EXPECT_EQ(association->getAssocState(), 4);
    EXPECT_EQ(association->getAssocStateTime(), 5);
    EXPECT_EQ(association->getAssocDescription(), "d");
    EXPECT_EQ(association->getAssocExtraInfo(), "e");
  }
}

TEST_P(GroupContentsTest, AContainerWhosePartsFailedComesBackAndIsNotCached) {
  addIfc("a");
  addIfc("b");
  for (const auto& [text, line] :
       {std::pair("ObjID in  ( 'a')", "Failed in getIfcDataByObjID \n"),
        std::pair("a.LeftIFContainerObjId in  ( 'a')", "Failed in getIfcAssocInfosByObjID \n")}) {
    removeIfcs();
    const CapturedLog log;
    StatementSpy spy;
    spy.fail(StatementSpy::Exec, text);
    EXPECT_THAT(idsOf(*ifcs({}, true)), UnorderedElementsAre("a", "b"));
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR) << text;
    EXPECT_THAT(status.getAuxMsg(), StartsWith("Problem Executing SQL Command\n"));
    EXPECT_THAT(log.lines(), Contains(line));
    EXPECT_FALSE(isIfcCached("a"));
    EXPECT_TRUE(isIfcCached("b"));
    EXPECT_FALSE(cache().isAllIfcInCache());
  }
  removeIfcs();
  const CapturedLog log;
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "nwifcctm");
  EXPECT_THAT(*ifcs({"a", "b"}), SizeIs(2));
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_THAT(log.lines(), Contains("Failed in getIfcInfoByObjIDList \n"));
  EXPECT_FALSE(isIfcCached("b"));
}

TEST_P(GroupContentsTest, FailedStepsOfAContainersStatementsAreTold) {
  const std::tuple<StatementSpy::Step, ZNTopoStatus, const char*> cases[] = {
      {StatementSpy::BindSql, ZN_API_SQL_BIND_STATEMENT_ERROR, "Unable to bind SQL Statement: "},
      {StatementSpy::BindColumn, ZN_API_SQL_BIND_COLUMN_ERROR,
       "Problem binding values for Ifc Data\n"},
      {StatementSpy::Exec, ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command\n"}};
  for (const auto& [step, code, text] : cases) {
    StatementSpy spy;
    spy.fail(step, "nwifc");
    int type = 0;
    int appsID = 0;
    bool isOrdered = false;
    bool cleanUp = true;
    std::list<ZNRefPtr<ZNIfcAssocInfo>> associations;
    for (const ZNTopoAPIStatus& answer :
         {impl.getIfcDataByObjID(ObjID("a"), type, appsID, isOrdered, cleanUp),
          impl.getIfcAssocInfosByObjID(ObjID("a"), associations)}) {
      EXPECT_EQ(answer.getStatus(), code);
      EXPECT_THAT(answer.getAuxMsg(), StartsWith(text));
      EXPECT_NE(answer.getAuxMsg().find(StatementSpy::kMessage), std::string::npos);
    }
  }
}

TEST_P(GroupContentsTest, AContainerWithoutANameEndsTheRead) {
  addIfc("a");
  addIfc("b", {{"EntityName", nullptr}});
  addIfc("c");
  const CapturedLog log;
  std::string clause = " 1 = 1 order by ObjId";
  EXPECT_THAT(idsOf(*impl.getIfcEntitiesByWhereClause(clause, status, false)), ElementsAre("a"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(log.lines(), testing::IsSupersetOf({"Creating Entity: a : ifc a \n",
                                                  "Received NULL values for critical data\n",
                                                  "Unable to create Entity!\n"}));
}

TEST_P(GroupContentsTest, WithoutAConditionAllContainersAreReadAndHaveTheirDefaults) {
  addIfc("a");
  addIfc("b", {{"hasDynamicProperty", 1}});
  store->insert("userdefvar",
                {{"ObjID", "b"}, {"VarName", "site"}, {"VarValType", 3}, {"StrVal", "x"}});
  const CapturedLog log;
  const StatementSpy spy;
  std::string clause;
  const auto found = impl.getIfcEntitiesByWhereClause(clause, status, true);
  EXPECT_THAT(idsOf(*found), UnorderedElementsAre("a", "b"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(spy.statements(), ElementsAre(testing::EndsWith("from  nwifc")));
  EXPECT_THAT(log.lines(), Contains("Where Clause is empty !\n"));
  for (const auto& entity : *found) {
    EXPECT_EQ(entity->getDescription(), "");
    EXPECT_EQ(entity->getZoneNumber(), "");
    EXPECT_EQ(entity->getRD(), 0);
    EXPECT_EQ(entity->getStatusChangeTime(), 0);
    EXPECT_THAT(entity->getUserVars(), IsEmpty());
  }
}

TEST_P(GroupContentsTest, TheStepsOfAContainersLoadAreLogged) {
  addIfc("a", {{"IFCType", 5}});
  addIfcMember("a", "n1", "p1", 1);
  const std::vector<std::string> steps = {
      "getIfcsByObjIDList Calling getIfcAssocInfosByObjID=a\n",
      "getIfcsByObjIDList settting the retrived assocInfoList\n"};
  {
    const CapturedLog log;
    ifcs({"a"});
    auto expected = steps;
    expected.insert(expected.begin(), "Cannot FOUND Ifc = a IN CACHE! \n");
    expected.push_back("getIfcsByObjIDList calling getIfcInfosByObjIDList\n");
    expected.push_back("getIfcsByObjIDList setting the infolist for Ifc=a\n");
    expected.push_back("getIfcsByObjIDList inserting into cache the Ifc=a\n");
    EXPECT_THAT(linesOfIfcs(log), testing::ElementsAreArray(expected));
  }
  const CapturedLog log;
  api.getIfcsByType(5, status, -1);
  auto expected = steps;
  expected.push_back("getIfcsByType calling getIfcInfosByObjIDList\n");
  expected.push_back("getIfcsByType setting the infolist for Ifc=a\n");
  EXPECT_THAT(linesOfIfcs(log), testing::ElementsAreArray(expected));
}

TEST_P(GroupContentsTest, NoContainerIsCleanedUpWhenItIsEmpty) {
  addIfc("a", {{"IFCType", 5}, {"isOrdered", 1}, {"AppsID", 6}});
  int type = 0;
  int appsID = 0;
  bool isOrdered = false;
  bool cleanUp = true;
  EXPECT_TRUE(impl.getIfcDataByObjID(ObjID("a"), type, appsID, isOrdered, cleanUp).isOK());
  EXPECT_EQ(type, 5);
  EXPECT_EQ(appsID, 6);
  EXPECT_TRUE(isOrdered);
  EXPECT_FALSE(cleanUp);
  cleanUp = true;
  EXPECT_TRUE(impl.getIfcDataByObjID(ObjID("x"), type, appsID, isOrdered, cleanUp).isOK());
  EXPECT_FALSE(cleanUp);
}

TEST_P(GroupContentsTest, ContainersByTypeAreReadEachTimeAndLeaveTheCacheAsItWas) {
  addIfc("a", {{"IFCType", 5}, {"RouteDistinguisher", 1}});
  addIfc("b", {{"IFCType", 5}, {"RouteDistinguisher", 2}});
  addIfc("c", {{"IFCType", 6}, {"RouteDistinguisher", 1}});
  for (int round = 0; round < 2; ++round) {
    const StatementSpy spy;
    EXPECT_THAT(idsOf(*api.getIfcsByType(5, status, -1)), UnorderedElementsAre("a", "b"));
    EXPECT_TRUE(status.isOK());
    EXPECT_THAT(spy.statements(), SizeIs(2 + 2 * 2));
  }
  EXPECT_THAT(idsOf(*api.getIfcsByType(5, status, 2)), ElementsAre("b"));
  EXPECT_FALSE(isIfcCached("a"));
  EXPECT_FALSE(cache().isAllIfcInCache());
  ifcs({}, true);
  const StatementSpy spy;
  EXPECT_THAT(idsOf(*api.getIfcsByType(5, status, 2)), UnorderedElementsAre("a", "b"));
  EXPECT_THAT(spy.allStatements(), IsEmpty());
}

// ---- HSRP groups ------------------------------------------------------------------------------

TEST_P(GroupContentsTest, AnHSRPGroupHasItsMembersByState) {
  store->addEntity("g", "group", 11);
  addMember("g", "a1", 6, {{"TrackInterfaceList", "[t1,10][t2,20]"}, {"HSRPStateCertainty", 90}});
  addMember("g", "a2", 5);
  addMember("g", "a3", 8);
  addMember("other", "a4", 6);
  for (const bool all : {false, true}) {
    ZNTopoAPI_Impl::cache()->clear(true);
    const auto groups = all ? hsrps({}, true) : hsrps({"g"});
    ASSERT_THAT(*groups, SizeIs(1)) << status.getAuxMsg();
    const ZNHSRP& group = *groups->front();
    EXPECT_EQ(group.getEntityType(), E_HSRP);
    EXPECT_EQ(group.getHSRPNumber(), 7);
    ASSERT_THAT(group.getActiveAddressInfoList(), SizeIs(1));
    const ZNHSRPAddressInfo& active = group.getActiveAddressInfoList().front();
    EXPECT_EQ(active.getAddressID(), ObjID("a1"));
    EXPECT_EQ(active.getIFObjID(), ObjID("if-a1"));
    EXPECT_EQ(active.getHSRPPriority(), 100);
    EXPECT_EQ(active.getHSRPStateCertainty(), 90);
    ASSERT_THAT(active.getTrackInterfaceInfoList(), SizeIs(2));
    EXPECT_EQ(active.getTrackInterfaceInfoList().back().ifObjID, ObjID("t2"));
    ASSERT_THAT(group.getStandbyAddressInfoList(), SizeIs(1));
    // What is absent has its default.
    EXPECT_EQ(group.getStandbyAddressInfoList().front().getHSRPStateCertainty(), 0);
    EXPECT_EQ(group.getStandbyAddressInfoList().front().getHSRPTrackInterfaceAsString(), "");
    // The store's 8 is no state.
    ASSERT_THAT(group.getMiscStateAddressInfoList(), SizeIs(1));
    EXPECT_EQ(group.getMiscStateAddressInfoList().front().getHSRPState(),
              ZNHSRPAddressInfo::MiscState);
  }
}

TEST_P(GroupContentsTest, HSRPGroupsGetTheirVariablesEvenAllAtOnce) {
  store->addEntity("g", "group", 11, {{"hasDynamicProperty", 1}});
  store->insert("userdefvar",
                {{"ObjID", "g"}, {"VarName", "site"}, {"VarValType", 3}, {"StrVal", "x"}});
  const auto groups = hsrps({}, true);
  ASSERT_THAT(*groups, SizeIs(1));
  EXPECT_EQ(groups->front()->getUserDefVarByName("site").getValue().getStrVal(), "x");
}

TEST_P(GroupContentsTest, HSRPGroupsWhoseMembersFailedComeBackAndAreNotCached) {
  store->addEntity("g", "group", 11);
  const CapturedLog log;
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "from hsrpaddress");
  EXPECT_THAT(*hsrps({"g"}), SizeIs(1));
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_THAT(log.lines(), Contains("Failed in getHSRPInfoByObjIDList \n"));
  ZNRefPtr<ZNHSRP> cached;
  EXPECT_FALSE(cache().inHSRPObjIDCache(ObjID("g"), cached));
}

TEST_P(GroupContentsTest, AfterARemovalAllGroupsAreReadAnew) {
  store->addEntity("g", "group", 11);
  hsrps({}, true);
  EXPECT_TRUE(cache().isAllHSRPInCache());
  cache().removeHSRP(ObjID("g"));
  EXPECT_THAT(*hsrps({}, true), SizeIs(1));
}

TEST_P(GroupContentsTest, GroupsAreFoundByAddressAndInterfaceAndNotByWhatTheyTrack) {
  addMember("g", "a1", 6);
  addMember("h", "a1", 5);
  const auto ask = [&](const char* id, ZNTopoAPI::GetHSRPObjIDsByIFAddressObjID_ObjType type) {
    return *api.getHSRPObjIDsByIFAddressObjID(ObjID(id), type, status);
  };
  static_assert(ZNTopoAPI::HSRP_Address == 0 && ZNTopoAPI::HSRP_Interface == 1 &&
                ZNTopoAPI::HSRP_TrackInterface == 2);
  {
    const CapturedLog log;
    EXPECT_THAT(ask("a1", ZNTopoAPI::HSRP_Address), UnorderedElementsAre(ObjID("g"), ObjID("h")));
    EXPECT_TRUE(status.isOK());
    EXPECT_THAT(log.lines(), testing::IsSupersetOf({"HSRP ID = g\n", "HSRP ID = h\n"}));
  }
  EXPECT_THAT(ask("if-a1", ZNTopoAPI::HSRP_Interface), SizeIs(2));
  EXPECT_THAT(ask("a1", ZNTopoAPI::HSRP_Interface), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(ask("a1", ZNTopoAPI::HSRP_TrackInterface), IsEmpty());
  EXPECT_THAT(status.getStatus(), AnyOf(ZN_API_SQL_BIND_STATEMENT_ERROR, ZN_API_SQL_EXEC_ERROR));
  // It does not ask whether the store is ready.
  store->execute("update state set TopologyReady = 0");
  EXPECT_THAT(ask("a1", ZNTopoAPI::HSRP_Address), SizeIs(2));
}

}  // namespace
}  // namespace zntopo::test
