#include "tests/support/ApiFixture.h"
#include "tests/support/ObjectTexts.h"
#include "zntopo/model/InetAddressIPv4.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

class InterfaceTest : public ApiTest {
 protected:
  static ZNTopoCache& cache() { return *ZNTopoAPI_Impl::cache(); }
  bool isCached(const std::string& id) {
    ZNRefPtr<ZNInterface> found;
    return cache().inInterfaceIDCache(ObjID(id), found);
  }
  auto byIDs(const std::set<ObjID>& ids) {
    return impl.getInterfacesByObjIDList(ids, notFound, status, false, false);
  }
};

// ---- one interface ----------------------------------------------------------------------------

TEST_P(InterfaceTest, AnInterfaceIsFoundByItsIdentifierAndCached) {
  store->addInterface("i1", "n1", "port");
  const auto interface = impl.getInterfaceByObjID("i1", status);
  ASSERT_FALSE(interface.isNull());
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
  EXPECT_EQ(interface->getName(), "port");
  EXPECT_TRUE(isCached("i1"));
  EXPECT_EQ(impl.getInterfaceByObjID("i1", status), interface);
}

TEST_P(InterfaceTest, ANullIdentifierIsInvalid) {
  EXPECT_TRUE(impl.getInterfaceByObjID(ObjID(), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "Null Interface ID\n");
}

TEST_P(InterfaceTest, AnUnknownIdentifierIsInvalid) {
  EXPECT_TRUE(impl.getInterfaceByObjID("nobody", status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "The ObjID: nobody is not a valid ObjID in RZ \n");
}

TEST_P(InterfaceTest, AStoreThatIsNotReadyReadsAsAnInvalidIdentifierToo) {
  store->execute("update state set TopologyReady = 0");
  EXPECT_TRUE(impl.getInterfaceByObjID("i1", status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
}

// ---- lists by identifier ----------------------------------------------------------------------

TEST_P(InterfaceTest, CachedInterfacesComeFirstAndThoseOfTheStoreBehind) {
  store->addInterface("a", "n1", "a");
  store->addInterface("b", "n1", "b");
  impl.getInterfaceByObjID("b", status);
  const auto found = byIDs({"a", "b"});
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(idsOf(*found), ElementsAre("b", "a"));
  EXPECT_THAT(notFound, IsEmpty());
}

TEST_P(InterfaceTest, OnlyWhatTheCacheLacksIsAskedOfTheStore) {
  store->addInterface("a", "n1", "a");
  store->addInterface("b", "n1", "b");
  impl.getInterfaceByObjID("b", status);
  const StatementSpy spy;
  byIDs({"a", "b"});
  const auto statements = spy.statements();
  ASSERT_THAT(statements, SizeIs(1));
  EXPECT_TRUE(statements[0].ends_with(" where a.ObjID in ( 'a')")) << statements[0];
}

TEST_P(InterfaceTest, ARequestThatTheCacheServesAsksNothingOfTheStore) {
  store->addInterface("a", "n1", "a");
  impl.getInterfaceByObjID("a", status);
  notFound = {"before"};
  const StatementSpy spy;
  EXPECT_THAT(idsOf(*byIDs({"a"})), ElementsAre("a"));
  EXPECT_THAT(spy.statements(), IsEmpty());
  EXPECT_THAT(notFound, IsEmpty());
}

TEST_P(InterfaceTest, WhatNobodyHasIsReported) {
  store->addInterface("a", "n1", "a");
  EXPECT_THAT(idsOf(*byIDs({"a", "x", "y"})), ElementsAre("a"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(textsOf(notFound), ElementsAre("x", "y"));
}

TEST_P(InterfaceTest, AnEmptySetIsRefused) {
  EXPECT_THAT(*byIDs({}), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_EQ(status.getAuxMsg(), "The InterfaceObjIDList is empty\n");
}

TEST_P(InterfaceTest, TheInnerListLeavesTheStatusForAnEmptySet) {
  notFound = {"before"};
  EXPECT_THAT(*impl.getInterfacesByObjIDList_Int({}, notFound, status, false, false), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  EXPECT_EQ(status.getAuxMsg(), "of before\n");
  EXPECT_THAT(notFound, IsEmpty());
}

TEST_P(InterfaceTest, ALoneNullIsAnEmptyListWhichTheEngineTakesOrRefuses) {
  const std::set<ObjID> lone = {ObjID()};
  EXPECT_THAT(*byIDs(lone), IsEmpty());
  if (store->isPostgres()) {
    EXPECT_THAT(status.getStatus(),
                testing::AnyOf(ZN_API_SQL_BIND_STATEMENT_ERROR, ZN_API_SQL_EXEC_ERROR));
  } else {
    EXPECT_TRUE(status.isOK());
  }
}

TEST_P(InterfaceTest, AnUnreadyStoreGivesNothing) {
  store->execute("update state set TopologyReady = 0");
  EXPECT_THAT(*byIDs({"a"}), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
}

TEST_P(InterfaceTest, LegacyIdentifiersFindInterfacesInTheStoreAndInTheCache) {
  store->addInterface("a", "n1", "a", {{"QRMObjId", "11"}});
  store->addInterface("b", "n1", "b", {{"QRMObjId", "12"}});
  impl.getInterfaceByObjID("b", status);
  const StatementSpy spy;
  const auto found = impl.getInterfacesByObjIDList({ObjID(11), ObjID(12), ObjID(13)}, notFound,
                                                   status, true, false);
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(idsOf(*found), ElementsAre("b", "a"));
  EXPECT_THAT(textsOf(notFound), ElementsAre("13"));
  ASSERT_THAT(spy.statements(), SizeIs(1));
  EXPECT_TRUE(spy.statements()[0].ends_with(" where a.QRMObjID in ( '11','13')"));
}

TEST_P(InterfaceTest, ManyIdentifiersGoInBatchesOfFiftyAndThenFortyNine) {
  std::set<ObjID> ids;
  for (int i = 0; i < 120; ++i) {
    ids.insert(ObjID(uuid(i)));
    // The first of each batch is missing: 0, 50 and 99.
    if (i != 0 && i != 50 && i != 99) store->addInterface(uuid(i), "n1", "port");
  }
  const StatementSpy spy;
  const auto found = byIDs(ids);
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(*found, SizeIs(117));
  std::vector<long> sizes;
  for (const std::string& sql : spy.statements()) {
    sizes.push_back(std::count(sql.begin(), sql.end(), '\'') / 2);
  }
  EXPECT_THAT(sizes, ElementsAre(50, 49, 21));
  EXPECT_THAT(textsOf(notFound), ElementsAre(uuid(99)));
}

TEST_P(InterfaceTest, AFailedBatchEndsTheWalkWithWhatTheEarlierOnesGave) {
  std::set<ObjID> ids;
  for (int i = 0; i < 60; ++i) {
    ids.insert(ObjID(uuid(i)));
    store->addInterface(uuid(i), "n1", "port");
  }
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, uuid(55));
  EXPECT_THAT(*byIDs(ids), SizeIs(50));
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
}

TEST_P(InterfaceTest, AForeignKindOfIdentifierIsNotFoundAmongTheOthers) {
  store->addInterface("a", "n1", "a");
  impl.getInterfaceByObjID("a", status);
  EXPECT_THAT(*byIDs({ObjID(5)}), IsEmpty());
  EXPECT_THAT(textsOf(notFound), ElementsAre("5"));
}

// ---- all connected interfaces -----------------------------------------------------------------

TEST_P(InterfaceTest, AllConnectedInterfacesAreReadAndNotCached) {
  store->addInterface("a", "n1", "a", {{"isL2Connected", 1}, {"hasAddress", 1}});
  store->addInterface("b", "n1", "b", {{"isL2Connected", 0}});
  store->addInterface("c", "n2", "c", {{"isL2Connected", 1}});
  store->addAddress("ad", "a", "n1", "10.0.0.1");
  notFound = {"before"};
  const auto found = impl.getInterfacesByObjIDList({}, notFound, status, false, true);
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(idsOf(*found), UnorderedElementsAre("a", "c"));
  EXPECT_THAT(notFound, IsEmpty());
  EXPECT_FALSE(isCached("a"));
  EXPECT_FALSE(isCached("c"));
  for (const auto& interface : *found) {
    EXPECT_EQ(interface->getAddresses().size(), interface->getObjID() == ObjID("a") ? 1u : 0u);
  }
}

// ---- by node ----------------------------------------------------------------------------------

TEST_P(InterfaceTest, ANodesInterfacesAreReadFromTheStoreEvenWhenTheyAreCached) {
  store->addInterface("a", "n1", "a", {{"hasAddress", 1}});
  store->addInterface("b", "n1", "b");
  store->addInterface("c", "n2", "c");
  store->addAddress("ad", "a", "n1", "10.0.0.1");
  const auto cached = impl.getInterfaceByObjID("a", status);
  const StatementSpy spy;
  const auto found = impl.getInterfacesByNodeObjIDList({"n1"}, status);
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(idsOf(*found), UnorderedElementsAre("a", "b"));
  ASSERT_FALSE(spy.statements().empty());
  EXPECT_TRUE(spy.statements()[0].ends_with(" where a.NodeObjID in ('n1')"));
  for (const auto& interface : *found) {
    EXPECT_FALSE(interface == cached);
    EXPECT_EQ(interface->getAddresses().size(), interface->getObjID() == ObjID("a") ? 1u : 0u);
  }
  // The cache keeps the object that it has.
  EXPECT_EQ(impl.getInterfaceByObjID("a", status), cached);
  EXPECT_TRUE(isCached("b"));
}

TEST_P(InterfaceTest, TheListOfNodesIsNotDividedAndNullsAreLeftOut) {
  std::list<ObjID> nodes = {ObjID()};
  for (int i = 0; i < 120; ++i) nodes.push_back(ObjID(uuid(i)));
  store->addInterface("a", uuid(119), "a");
  const StatementSpy spy;
  EXPECT_THAT(idsOf(*impl.getInterfacesByNodeObjIDList(nodes, status)), ElementsAre("a"));
  ASSERT_THAT(spy.statements(), SizeIs(1));
  EXPECT_EQ(spy.statements()[0].find("NULL"), std::string::npos);
}

TEST_P(InterfaceTest, NoNodesGiveNothingAndAGoodStatus) {
  EXPECT_THAT(*impl.getInterfacesByNodeObjIDList({}, status), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

TEST_P(InterfaceTest, OnlyNullNodesMakeNoStatementAtAll) {
  EXPECT_THAT(*impl.getInterfacesByNodeObjIDList({ObjID()}, status), IsEmpty());
  EXPECT_THAT(status.getStatus(),
              testing::AnyOf(ZN_API_SQL_BIND_STATEMENT_ERROR, ZN_API_SQL_EXEC_ERROR));
}

TEST_P(InterfaceTest, TheIdentifiersOfNodesInterfacesComeByNode) {
  store->addInterface("a", "n1", "a");
  store->addInterface("b", "n1", "b");
  store->addInterface("c", "n2", "c");
  store->addInterface("d", "n3", "d");
  const auto map = impl.getInterfaceIDsByNodeObjIDList({"n1", "n2", "n4"}, status);
  EXPECT_TRUE(status.isOK());
  ASSERT_THAT(*map, SizeIs(2));
  EXPECT_THAT(textsOf(*map->at("n1")), ElementsAre("a", "b"));
  EXPECT_THAT(textsOf(*map->at("n2")), ElementsAre("c"));
}

// ---- what hangs on interfaces -----------------------------------------------------------------

TEST_P(InterfaceTest, UserVariablesAndAddressesAreLoadedForThoseThatHaveThem) {
  store->addInterface("a", "n1", "a", {{"hasDynamicProperty", 1}, {"hasAddress", 1}});
  store->addInterface("b", "n1", "b");
  store->insert("userdefvar",
                {{"ObjID", "a"}, {"VarName", "colour"}, {"VarValType", 3}, {"StrVal", "red"}});
  store->insert("userdefvar",
                {{"ObjID", "b"}, {"VarName", "colour"}, {"VarValType", 3}, {"StrVal", "blue"}});
  store->addAddress("ad", "a", "n1", "10.0.0.1");
  store->addAddress("bd", "b", "n1", "10.0.0.2");
  const auto found = byIDs({"a", "b"});
  ASSERT_THAT(*found, SizeIs(2));
  for (const auto& interface : *found) {
    const bool isA = interface->getObjID() == ObjID("a");
    EXPECT_EQ(interface->getUserDefVarByName("colour").getValue().getStrVal(), isA ? "red" : "");
    EXPECT_EQ(interface->getAddresses().size(), isA ? 1u : 0u);
  }
}

TEST_P(InterfaceTest, AFailedLoaderGivesTheInterfacesWithItsStatusAndCachesNone) {
  store->addInterface("a", "n1", "a", {{"hasDynamicProperty", 1}, {"hasAddress", 1}});
  store->addAddress("ad", "a", "n1", "10.0.0.1");
  StatementSpy spy;
  for (const char* table : {"from userdefvar", "from address"}) {
    spy.succeed();
    spy.fail(StatementSpy::Exec, table);
    // A list call stops at the bad status and drops the batch: the query itself is asked.
    const auto found = impl.getInterfacesByWhereQuery("", status, 0, {});
    EXPECT_THAT(idsOf(*found), ElementsAre("a")) << table;
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR) << table;
    EXPECT_FALSE(isCached("a")) << table;
  }
}

// ---- odd rows ---------------------------------------------------------------------------------

TEST_P(InterfaceTest, ARowOfAnotherEntityTypeIsSkipped) {
  store->addInterface("a", "n1", "a", {{"EntityType", 3}});
  store->addInterface("b", "n1", "b", {{"EntityType", nullptr}, {"EntityName", nullptr}});
  store->addInterface("c", "n1", "c");
  EXPECT_THAT(idsOf(*byIDs({"a", "b", "c"})), ElementsAre("c"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(textsOf(notFound), ElementsAre("a", "b"));
}

TEST_P(InterfaceTest, ARowWithoutCriticalDataEndsTheReadWithAGoodStatusAndWithoutLoaders) {
  for (const char* column : {"EntityName", "IPLevel"}) {
    store->execute("delete from nwinterface");
    store->execute("delete from nwentity");
    store->execute("delete from address");
    store->addInterface("a", "n1", "a", {{"hasAddress", 1}});
    store->addInterface("b", "n1", "b", {{column, nullptr}});
    store->addInterface("c", "n1", "c");
    store->addAddress("ad", "a", "n1", "10.0.0.1");
    cache().clear(true);
    const auto found = impl.getInterfacesByWhereQuery(" order by a.ObjId", status, 0, {});
    EXPECT_TRUE(status.isOK()) << column;
    EXPECT_THAT(idsOf(*found), ElementsAre("a")) << column;
    EXPECT_TRUE(found->front()->getAddresses().empty()) << column;
    EXPECT_FALSE(isCached("a")) << column;
  }
}

TEST_P(InterfaceTest, AnEmptyNameCountsAsNull) {
  store->addInterface("a", "n1", "");
  EXPECT_THAT(*byIDs({"a"}), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

// ---- by address and by name -------------------------------------------------------------------

TEST_P(InterfaceTest, WithoutARouteDistinguisherThePublicAddressIsLookedUp) {
  store->addInterface("a", "n1", "a");
  store->addInterface("b", "n1", "b");
  store->addAddress("ad", "a", "n1", "192.168.0.1",
                    {{"PubV4Address", "10.0.0.1"}, {"RouteDistinguisher", 0}});
  store->addAddress("bd", "b", "n1", "10.0.0.1",
                    {{"PubV4Address", "192.168.0.1"}, {"RouteDistinguisher", 0}});
  EXPECT_EQ(impl.getInterfaceByIPV4("10.0.0.1", status, -1)->getObjID(), ObjID("a"));
  EXPECT_EQ(impl.getInterfaceByIPV4("10.0.0.1", status, 0)->getObjID(), ObjID("b"));
  EXPECT_TRUE(impl.getInterfaceByIPV4("10.0.0.1", status, 1).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_OBJ_NOT_EXIST);
  EXPECT_EQ(status.getAuxMsg(), "No object found with the given IP\n");
}

TEST_P(InterfaceTest, AnAddressOnTwoInterfacesGivesTheFirstRowsAndNoError) {
  store->addInterface("a", "n1", "a");
  store->addInterface("b", "n2", "b");
  store->addAddress("ad", "a", "n1", "10.0.0.1");
  store->addAddress("bd", "b", "n2", "10.0.0.1");
  const std::string first =
      store->value("select objID from address where PubV4Address = '10.0.0.1'").value();
  const auto found = impl.getInterfaceByIPV4("10.0.0.1", status, -1);
  EXPECT_TRUE(status.isOK());
  ASSERT_FALSE(found.isNull());
  EXPECT_EQ(found->getObjID(), ObjID(first));
}

TEST_P(InterfaceTest, AnAddressOfNoInterfaceIsAnInvalidIdentifier) {
  store->addAddress("ad", "subnet", "n1", "10.0.0.1");
  EXPECT_TRUE(impl.getInterfaceByIPV4("10.0.0.1", status, -1).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
}

TEST_P(InterfaceTest, AnEmptyAddressIsRefused) {
  EXPECT_TRUE(impl.getInterfaceByIPV4("", status, -1).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_ILLEGAL_INPUT);
  EXPECT_EQ(status.getAuxMsg(), "Null IP Address\n");
}

TEST_P(InterfaceTest, AnInterfaceIsFoundByItsNameOnANode) {
  store->addInterface("a", "n1", "eth0", {{"nodeName", "core"}});
  store->addInterface("b", "n2", "eth0", {{"nodeName", "edge"}});
  EXPECT_EQ(impl.getInterfaceByIfName("eth0", "edge", status)->getObjID(), ObjID("b"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(InterfaceTest, ANameThatIsADescriptionOnAnotherNodeMatchesThere) {
  store->addInterface("a", "n1", "other", {{"nodeName", "core"}, {"Description", "eth0"}});
  EXPECT_EQ(impl.getInterfaceByIfName("eth0", "edge", status)->getObjID(), ObjID("a"));
}

TEST_P(InterfaceTest, AnUnknownInterfaceNameHasTheWordsOfAnUnknownAddress) {
  EXPECT_TRUE(impl.getInterfaceByIfName("eth0", "edge", status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_OBJ_NOT_EXIST);
  EXPECT_EQ(status.getAuxMsg(), "No object found with the given IP\n");
}

TEST_P(InterfaceTest, AnEmptyInterfaceOrNodeNameIsRefused) {
  for (const auto& [name, node] : {std::pair("", "core"), std::pair("eth0", "")}) {
    EXPECT_TRUE(impl.getInterfaceByIfName(name, node, status).isNull());
    EXPECT_EQ(status.getStatus(), ZN_API_ILLEGAL_INPUT);
    EXPECT_EQ(status.getAuxMsg(), "Null IfName or NodeName input\n");
  }
}

TEST_P(InterfaceTest, AQuoteInANameFailsTheStatement) {
  EXPECT_TRUE(impl.getInterfaceByIfName("eth'0", "edge", status).isNull());
  EXPECT_FALSE(status.isOK());
}

// ---- meshes -----------------------------------------------------------------------------------

TEST_P(InterfaceTest, TheMeshOfAnInterfaceIsThatOfTheLastRow) {
  store->insert("containment",
                {{"ContainerObjID", "vlan"}, {"ContainedObjID", "a"}, {"ContainerType", 4}});
  store->insert("containment",
                {{"ContainerObjID", "mesh"}, {"ContainedObjID", "a"}, {"ContainerType", 10}});
  EXPECT_EQ(impl.getMeshID("a", status), ObjID("mesh"));
  EXPECT_TRUE(status.isOK());
  store->insert("containment",
                {{"ContainerObjID", "mesh2"}, {"ContainedObjID", "a"}, {"ContainerType", 10}});
  EXPECT_THAT(impl.getMeshID("a", status).getStrValue(), testing::AnyOf("mesh", "mesh2"));
}

TEST_P(InterfaceTest, AnInterfaceOutsideAnyMeshHasANullMeshAndAGoodStatus) {
  EXPECT_TRUE(impl.getMeshID("a", status).isNull());
  EXPECT_TRUE(status.isOK());
}

TEST_P(InterfaceTest, TheMeshOfAnInterfaceIsToldOfAnUnreadyStoreToo) {
  store->execute("update state set TopologyReady = 0");
  impl.getMeshID("a", status);
  EXPECT_TRUE(status.isOK());
}

TEST_P(InterfaceTest, TheInterfacesOfAContainerAreAskedForAndNeverDelivered) {
  store->addInterface("a", "n1", "a");
  store->insert("containment", {{"ContainerObjID", "mesh"},
                                {"ContainedObjID", "a"},
                                {"ContainerType", 10},
                                {"ContainedType", 2}});
  const StatementSpy spy;
  EXPECT_THAT(impl.getInterfacesByObjID("mesh", status), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(spy.statements(),
              ElementsAre("select ContainedObjId from containment where ContainerObjID = 'mesh' "
                          "and ContainedType = 2"));
}

TEST_P(InterfaceTest, TheInterfacesOfAContainerNeedAReadyStore) {
  store->execute("update state set TopologyReady = 0");
  EXPECT_THAT(impl.getInterfacesByObjID("mesh", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
  EXPECT_THAT(impl.getMeshInterfaces("mesh", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
}

TEST_P(InterfaceTest, MeshInterfacesAlwaysEndInAnEmptyListOfIdentifiers) {
  store->addInterface("a", "n1", "a");
  store->insert("containment", {{"ContainerObjID", "mesh"},
                                {"ContainedObjID", "a"},
                                {"ContainerType", 10},
                                {"ContainedType", 2}});
  EXPECT_THAT(impl.getMeshInterfaces("mesh", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_EQ(status.getAuxMsg(), "The InterfaceObjIDList is empty\n");
}

ZNTOPO_ON_ENGINES(InterfaceTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
