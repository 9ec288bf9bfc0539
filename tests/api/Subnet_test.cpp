// Subnets by identifier, by list and all of them, and their end points.

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/ObjectTexts.h"
#include "zntopo/model/SubnetEndPoint.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

/// "node/interface/address" of each end point.
std::vector<std::string> textsOf(const std::list<SubnetEndPoint>& points) {
  std::vector<std::string> texts;
  for (const SubnetEndPoint& point : points) {
    texts.push_back(point.getNodeObjID().getStrValue() + "/" + point.getIFObjID().getStrValue() +
                    "/" + point.getAddressID().getStrValue());
  }
  std::sort(texts.begin(), texts.end());
  return texts;
}

class SubnetTest : public ApiTest {
 protected:
  static ZNTopoCache& cache() { return *ZNTopoAPI_Impl::cache(); }
  bool isCached(const std::string& id) {
    ZNRefPtr<ZNSubnet> found;
    return cache().inSubnetIDCache(ObjID(id), found);
  }
  auto byIDs(const std::set<ObjID>& ids, bool isQRMID = false) {
    return impl.getSubnetsByObjIDList(ids, status, isQRMID, false, ZNEntity::IPv6, -1);
  }
  auto all(ZNEntity::IPLevel level, int rd) {
    return impl.getSubnetsByObjIDList({}, status, false, true, level, rd);
  }

  /// An interface whose address lies in a subnet, and that its node contains.
  void addMember(const std::string& subnet, const std::string& node, const std::string& interface) {
    store->addInterface(interface, node, interface);
    store->addAddress("adr-" + interface, interface, node, "10.0.0.1", {{"SubnetObjId", subnet}});
    store->insert("containment", {{"ContainerObjID", node}, {"ContainedObjID", interface}});
  }
  std::vector<std::string> pointsOf(const std::string& id) {
    const auto found = byIDs({ObjID(id)});
    return found->empty() ? std::vector<std::string>{"no subnet"}
                          : textsOf(found->front()->getSubnetEndPointList());
  }
  std::vector<std::string> pointsByContainment(const std::string& id) {
    std::string clause = " ObjID = '" + id + "'";
    const auto found = impl.getEntitiesByWhereClause(clause, status, false);
    return textsOf(impl.getSubnetEndPoints(*found->front(), status));
  }

  ZNTopoAPI api;
};
ZNTOPO_ON_ENGINES(SubnetTest, kEngines);

// ---- one subnet -------------------------------------------------------------------------------

TEST_P(SubnetTest, AnIPv4SubnetIsFoundByItsIdentifierAndNotCached) {
  store->addEntity("s", "net", 7, {{"IPLevel", 4}});
  const auto subnet = api.getSubnetByObjID(ObjID("s"), status);
  ASSERT_FALSE(subnet.isNull());
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
  EXPECT_EQ(subnet->getName(), "net");
  EXPECT_EQ(subnet->getEntityType(), E_Subnet);
  EXPECT_THAT(subnet->getSubnetEndPointList(), IsEmpty());
  EXPECT_FALSE(isCached("s"));
}

TEST_P(SubnetTest, ANullIdentifierIsInvalidInBothForms) {
  EXPECT_TRUE(api.getSubnetByObjID(ObjID(), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "Null QRM Object ID entered. \n");
  EXPECT_TRUE(api.getSubnetByQRMObjID(ObjID(), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "Null QRM Object ID entered. \n");
}

TEST_P(SubnetTest, AnUnknownIdentifierIsInvalidInBothForms) {
  EXPECT_TRUE(api.getSubnetByObjID(ObjID("x"), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "getSubnetsByObjIDList - no subnet retrieve \n");
  EXPECT_TRUE(api.getSubnetByQRMObjID(ObjID("1"), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "getSubnetsByObjIDList - no subnet retrieve\n");
}

TEST_P(SubnetTest, AnEntityOfAnotherKindIsNoSubnet) {
  store->addEntity("v", "vlan", 4);
  EXPECT_TRUE(api.getSubnetByObjID(ObjID("v"), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  store->addEntity("s", "net", 7);
  EXPECT_THAT(idsOf(*byIDs({"s", "v"})), ElementsAre("s"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(SubnetTest, AStoreThatIsNotReadyIsTold) {
  store->execute("update state set TopologyReady = 0");
  const CapturedLog log;
  EXPECT_TRUE(api.getSubnetByObjID(ObjID("s"), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
  EXPECT_EQ(status.getAuxMsg(), "Topology DB is not ready\n");
  EXPECT_THAT(log.lines(), Contains("getSubnetsByObjIDList - error ! \n"));
}

TEST_P(SubnetTest, ALegacyIdentifierIsLookedUpInTheCacheFirst) {
  store->addEntity("s", "net", 7, {{"QRMObjId", "17"}});
  const auto read = api.getSubnetByQRMObjID(ObjID("17"), status);
  ASSERT_FALSE(read.isNull());
  impl.useSubnet(read);
  const StatementSpy spy;
  EXPECT_EQ(api.getSubnetByQRMObjID(ObjID("17"), status), read);
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(spy.allStatements(), IsEmpty());
}

// ---- lists ------------------------------------------------------------------------------------

TEST_P(SubnetTest, AnEmptySetIsToldUnlessAllAreAskedFor) {
  EXPECT_THAT(*byIDs({}), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_EQ(status.getAuxMsg(), "Input ObjID List is empty\n");
  EXPECT_THAT(*all(ZNEntity::AllProtocol, -1), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

TEST_P(SubnetTest, CachedSubnetsStayInFrontOfThoseOfTheStore) {
  for (const char* id : {"a", "b", "c"}) store->addEntity(id, id, 7);
  impl.useSubnet(api.getSubnetByObjID(ObjID("b"), status));
  const CapturedLog log;
  const auto found = byIDs({"a", "b", "c"});
  EXPECT_TRUE(status.isOK());
  ASSERT_THAT(*found, SizeIs(3));
  EXPECT_EQ(found->front()->getObjID(), ObjID("b"));
  EXPECT_FALSE(isCached("a"));
  EXPECT_THAT(log.lines(), Contains("FOUND Subnet = b IN CACHE! \n"));
  EXPECT_THAT(log.lines(), Not(Contains("Found all Subnet in cache ! \n")));
}

TEST_P(SubnetTest, ASetThatIsWhollyCachedAsksNoStore) {
  for (const char* id : {"a", "b"}) {
    store->addEntity(id, id, 7);
    impl.useSubnet(api.getSubnetByObjID(ObjID(id), status));
  }
  const CapturedLog log;
  const StatementSpy spy;
  EXPECT_THAT(idsOf(*byIDs({"a", "b"})), ElementsAre("a", "b"));
  EXPECT_THAT(spy.allStatements(), IsEmpty());
  EXPECT_THAT(log.lines(), Contains("Found all Subnet in cache ! \n"));
}

TEST_P(SubnetTest, LegacyIdentifiersAlwaysReadTheStore) {
  store->addEntity("s", "net", 7, {{"QRMObjId", "17"}});
  impl.useSubnet(api.getSubnetByObjID(ObjID("s"), status));
  const StatementSpy spy;
  EXPECT_THAT(idsOf(*byIDs({ObjID("17")}, true)), ElementsAre("s"));
  EXPECT_THAT(spy.statements(), SizeIs(2));
}

// A set that holds the null identifier holds no other: it has no order among them.
TEST_P(SubnetTest, ANullIdentifierLeavesAStatementThatFails) {
  EXPECT_THAT(*byIDs({ObjID()}), IsEmpty());
  EXPECT_THAT(status.getStatus(),
              testing::AnyOf(ZN_API_SQL_BIND_STATEMENT_ERROR, ZN_API_SQL_EXEC_ERROR));
}

TEST_P(SubnetTest, AllSubnetsAreThoseOfALevelAndARouteDistinguisher) {
  store->addEntity("a4", "a", 7, {{"IPLevel", 4}, {"RouteDistinguisher", 1}});
  store->addEntity("b6", "b", 7, {{"IPLevel", 6}, {"RouteDistinguisher", 1}});
  store->addEntity("c4", "c", 7, {{"IPLevel", 4}, {"RouteDistinguisher", 2}});
  store->addEntity("v", "vlan", 4);
  EXPECT_THAT(idsOf(*all(ZNEntity::AllProtocol, -1)),
              testing::UnorderedElementsAre("a4", "b6", "c4"));
  EXPECT_THAT(idsOf(*all(ZNEntity::IPv4, -1)), testing::UnorderedElementsAre("a4", "c4"));
  EXPECT_THAT(idsOf(*all(ZNEntity::IPv6, -1)), ElementsAre("b6"));
  EXPECT_THAT(idsOf(*all(ZNEntity::AllProtocol, 2)), ElementsAre("c4"));
  EXPECT_THAT(idsOf(*all(ZNEntity::IPv4, 1)), ElementsAre("a4"));
  EXPECT_THAT(*all(ZNEntity::IPv6, 2), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

TEST_P(SubnetTest, AFailedStatementGivesWhatTheCacheHas) {
  for (const char* id : {"a", "b"}) store->addEntity(id, id, 7);
  impl.useSubnet(api.getSubnetByObjID(ObjID("a"), status));
  const CapturedLog log;
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "nwentity");
  EXPECT_THAT(idsOf(*byIDs({"a", "b"})), ElementsAre("a"));
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_TRUE(api.getSubnetByObjID(ObjID("b"), status).isNull());
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_THAT(log.lines(), Contains(StartsWith("getEntitiesByWhereClase() - error ! ")));
}

TEST_P(SubnetTest, ManyIdentifiersGoIntoOneStatement) {
  std::set<ObjID> ids;
  for (int i = 1; i <= 120; ++i) {
    store->addEntity(uuid(i), "net", 7);
    ids.insert(ObjID(uuid(i)));
  }
  const StatementSpy spy;
  EXPECT_THAT(*byIDs(ids), SizeIs(120));
  EXPECT_THAT(spy.statements(), SizeIs(2));
}

// ---- end points -------------------------------------------------------------------------------

TEST_P(SubnetTest, EndPointsAreNodeInterfaceAndAddress) {
  store->addEntity("s", "net", 7);
  addMember("s", "n1", "i1");
  addMember("s", "n2", "i2");
  addMember("other", "n3", "i3");
  EXPECT_THAT(pointsOf("s"), ElementsAre("n1/i1/adr-i1", "n2/i2/adr-i2"));
  EXPECT_EQ(pointsByContainment("s"), pointsOf("s"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(SubnetTest, TheSubnetsOwnAddressRowIsNoEndPoint) {
  store->addEntity("s", "net", 7);
  store->insert("nwinterface", {{"ObjId", "s"}, {"NodeObjID", "n"}});
  store->insert("containment", {{"ContainerObjID", "n"}, {"ContainedObjID", "s"}});
  store->addAddress("own", "s", "n", "10.0.0.0", {{"SubnetObjId", "s"}});
  EXPECT_THAT(pointsOf("s"), IsEmpty());
  EXPECT_THAT(pointsByContainment("s"), IsEmpty());
}

TEST_P(SubnetTest, TheTwoFormsAskOtherTables) {
  store->addEntity("s", "net", 7);
  addMember("s", "n1", "i1");
  store->execute("update containment set ContainerObjID = 'elsewhere'");
  EXPECT_THAT(pointsOf("s"), ElementsAre("n1/i1/adr-i1"));
  EXPECT_THAT(pointsByContainment("s"), ElementsAre("elsewhere/i1/adr-i1"));
}

TEST_P(SubnetTest, ARowThatLacksAPartIsLeftOutAndLogged) {
  store->addEntity("s", "net", 7);
  addMember("s", "", "i1");
  addMember("s", "n2", "i2");
  store->addAddress("no-owner", "i2", "n2", "10.0.0.9", {{"ObjId", nullptr}, {"SubnetObjId", "s"}});
  const CapturedLog log;
  EXPECT_THAT(pointsOf("s"), ElementsAre("n2/i2/adr-i2"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(pointsByContainment("s"), ElementsAre("n2/i2/adr-i2"));
  EXPECT_TRUE(status.isOK());
  const auto lines = log.lines();
  EXPECT_EQ(
      std::count(lines.begin(), lines.end(), "Found Null data in retrieval of SubnetEndPoints\n"),
      2);
}

TEST_P(SubnetTest, SubnetsComeBackWithoutEndPointsIfThoseFail) {
  store->addEntity("s", "net", 7);
  addMember("s", "n1", "i1");
  const CapturedLog log;
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "from address");
  const auto found = byIDs({"s"});
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  ASSERT_THAT(*found, SizeIs(1));
  EXPECT_THAT(found->front()->getSubnetEndPointList(), IsEmpty());
  EXPECT_THAT(log.lines(), Contains("getSubnetEndPointsByObjIDLIst - error !\n"));
  const auto subnet = api.getSubnetByObjID(ObjID("s"), status);
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  ASSERT_FALSE(subnet.isNull());
  EXPECT_THAT(subnet->getSubnetEndPointList(), IsEmpty());
}

TEST_P(SubnetTest, FailedStepsOfTheEndPointStatementsNameTheStatement) {
  const std::list<ObjID> ids = {"s"};
  const auto fails = [&](StatementSpy::Step step, ZNTopoStatus code, const std::string& one,
                         const std::string& many) {
    StatementSpy spy;
    spy.fail(step, "SubnetObjID");
    ZNEntity entity;
    EXPECT_THAT(impl.getSubnetEndPoints(entity, status), IsEmpty());
    EXPECT_EQ(status.getStatus(), code);
    EXPECT_THAT(status.getAuxMsg(), StartsWith(one + spy.statements().back() + "\n"));
    EXPECT_THAT(*impl.getSubnetEndPointsByObjIDList(ids, status), IsEmpty());
    EXPECT_EQ(status.getStatus(), code);
    EXPECT_THAT(status.getAuxMsg(), StartsWith(many + spy.statements().back() + "\n"));
  };
  fails(StatementSpy::BindSql, ZN_API_SQL_BIND_STATEMENT_ERROR,
        "Unable to bind SQL Statement: ", "Unable to bind SQL Statement: ");
  fails(StatementSpy::BindColumn, ZN_API_SQL_BIND_COLUMN_ERROR,
        "Problem binding values for SubnetEndPoints:",
        "Problem binding values for SubnetEndPoints: ");
  fails(StatementSpy::Exec, ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command",
        "Problem Executing SQL Command: ");
}

TEST_P(SubnetTest, EndPointsOfNoSubnetAskNoStore) {
  const CapturedLog log;
  const StatementSpy spy;
  EXPECT_THAT(*impl.getSubnetEndPointsByObjIDList({}, status), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(spy.statements(), IsEmpty());
  EXPECT_THAT(log.lines(), Contains("getSubnetEndPointsByObjIDLIst() has empty  ID list \n"));
}

TEST_P(SubnetTest, EndPointsPrintTheNamesThatTheStoreHas) {
  store->addEntity("s", "net", 7);
  store->addNode("n1", "core-1");
  addMember("s", "n1", "i1");
  const auto subnet = api.getSubnetByObjID(ObjID("s"), status);
  ASSERT_FALSE(subnet.isNull());
  EXPECT_THAT(subnet->toString(),
              testing::HasSubstr("\n0)(NodeID:n1, IFID:i1, AddressID:adr-i1) "
                                 "(NodeName:core-1, IFName:i1, Address:10.0.0.1)\n"));
}

TEST_P(SubnetTest, TheScopeOfASubnetIsThatOfItsOwnIPv6Address) {
  store->addEntity("v6", "net", 7, {{"IPLevel", 6}, {"hasAddress", 1}});
  store->addAddress("own", "v6", "", "",
                    {{"AddressType", 2},
                     {"IPLevel", 6},
                     {"SubnetObjId", "v6"},
                     {"V6Address", "2001:db8::"},
                     {"V6ScopeType", 3},
                     {"PrefixLength", 64}});
  store->addEntity("v4", "net", 7);
  EXPECT_EQ(api.getSubnetByObjID(ObjID("v6"), status)->getSubnetScopeType(),
            InetAddressIPv6::Global);
  EXPECT_EQ(api.getSubnetByObjID(ObjID("v4"), status)->getSubnetScopeType(),
            InetAddressIPv6::Unknown);
}

TEST_P(SubnetTest, AnEndPointOfWhatIsNotInTheStorePrintsItsIdentifiers) {
  const SubnetEndPoint point(ObjID("n"), ObjID("i"), ObjID("a"));
  EXPECT_EQ(point.toString(ActiveDB),
            "(NodeID:n, IFID:i, AddressID:a) (NodeName:, IFName:, Address:)");
}

}  // namespace
}  // namespace zntopo::test
