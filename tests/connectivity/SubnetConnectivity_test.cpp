// The subnets within so many hops of a node.

#include <limits>

#include "tests/connectivity/V6Network.h"
#include "tests/support/CapturedLog.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class SubnetConnectivityTest : public V6ConnectivityTest {
 protected:
  void expectFailure(ZNTopoStatus code, const std::string& text) {
    EXPECT_EQ(status.getStatus(), code);
    EXPECT_EQ(status.getAuxMsg(), text);
  }
  /// The nodes that a subnet adds to those in the map.
  std::vector<std::string> prepared(const std::set<ObjID>& subnets) {
    NodeList nodes;
    api.prepareProcessingList(subnets, nodes, met);
    return idsOf(nodes);
  }

  std::map<ObjID, ZNRefPtr<ZNNode>> met;
};
ZNTOPO_ON_ENGINES(SubnetConnectivityTest, kEngines);

// ---- what is refused --------------------------------------------------------------------------

TEST_P(SubnetConnectivityTest, ANullNodeIsRefusedBeforeAnythingElse) {
  store->execute("update state set TopologyReady = 0");
  const StatementSpy spy;
  EXPECT_THAT(subnets("", 0), IsEmpty());
  expectFailure(ZN_API_INVALID_ID, "Null Node Object ID Entered in getNSubnetConnectivity()\n");
  EXPECT_THAT(spy.allStatements(), IsEmpty());
}

TEST_P(SubnetConnectivityTest, NoHopsAreRefusedBeforeTheStoreIsAsked) {
  store->execute("update state set TopologyReady = 0");
  const StatementSpy spy;
  for (const int hops : {0, -1, std::numeric_limits<int>::min()}) {
    EXPECT_THAT(subnets("a", hops), IsEmpty());
    expectFailure(ZN_API_INVALID_NUM_HOPS,
                  "Number of Hops specific <= 0 in getNSubnetConnectivity()\n");
  }
  EXPECT_THAT(spy.allStatements(), IsEmpty());
}

TEST_P(SubnetConnectivityTest, AStoreThatIsNotReadyGivesNothing) {
  v6->chain({"a", "b"});
  store->execute("update state set TopologyReady = 0");
  EXPECT_THAT(subnets("a", 1), IsEmpty());
  expectFailure(ZN_API_DB_NOT_READY, "Topology DB is not ready\n");
}

TEST_P(SubnetConnectivityTest, AnUnknownNodeIsInvalid) {
  EXPECT_THAT(subnets("nobody", 1), IsEmpty());
  expectFailure(ZN_API_INVALID_ID,
                "The ObjID: nobody is not a valid ObjID in RZ \n"
                "Unable to obtain Node for Entered Node ID in getSubnetConnectivity()\n");
}

TEST_P(SubnetConnectivityTest, ANodeThatCannotBeReadIsInvalid) {
  v6->chain({"a", "b"});
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "NODE.ObjID in ('a')");
  EXPECT_THAT(subnets("a", 1), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_THAT(
      status.getAuxMsg(),
      testing::EndsWith("Unable to obtain Node for Entered Node ID in getSubnetConnectivity()\n"));
}

TEST_P(SubnetConnectivityTest, AnIPv4NodeHasNoSubnetHops) {
  v6->node("a", ZNEntity::IPv4);
  v6->subnet("s");
  v6->attach("a", "s");
  EXPECT_THAT(subnets("a", 1), IsEmpty());
  expectFailure(ZN_API_NON_V6_NODE,
                "Unable to caculate subnet NHops for non-IPV6 Node in getSubnetConnectivity()\n");
}

// ---- hops -------------------------------------------------------------------------------------

TEST_P(SubnetConnectivityTest, OneHopGivesTheNodesOwnSubnetsAndAsksForNoOtherNode) {
  v6->chain({"a", "b", "c"});
  const CapturedLog log;
  EXPECT_THAT(subnets("b", 1), ElementsAre("a-b", "b-c"));
  expectFailure(ZN_API_SUCCESS, "");
  EXPECT_THAT(log.lines(), Not(Contains("+prepareProcessingList\n")));
}

TEST_P(SubnetConnectivityTest, TwoHopsReachTheSubnetsOfTheNodesOnTheFirstOnes) {
  v6->chain({"a", "b", "c", "d"});
  EXPECT_THAT(subnets("a", 1), ElementsAre("a-b"));
  EXPECT_THAT(subnets("a", 2), ElementsAre("a-b", "b-c"));
  EXPECT_THAT(subnets("a", 3), ElementsAre("a-b", "b-c", "c-d"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(SubnetConnectivityTest, TheWalkEndsWhereItMeetsNobodyNew) {
  v6->chain({"a", "b", "c"});
  v6->attach("c", "a-b");
  EXPECT_THAT(subnets("a", std::numeric_limits<int>::max()), ElementsAre("a-b", "b-c"));
}

TEST_P(SubnetConnectivityTest, SubnetsComeInTheOrderOfTheirIdentifiersEachOnce) {
  v6->node("a");
  for (const char* id : {"s3", "s1", "s2"}) {
    v6->subnet(id);
    v6->attach("a", id);
  }
  v6->address("second", "a/s3", "s3");
  EXPECT_THAT(subnets("a", 5), ElementsAre("s1", "s2", "s3"));
}

TEST_P(SubnetConnectivityTest, NodesOnTheWayMayBeOfAnyLevel) {
  v6->chain({"a", "b", "c"});
  store->execute("update nwnode set IPLevel = 4 where ObjId = 'b'");
  EXPECT_THAT(subnets("a", 2), ElementsAre("a-b", "b-c"));
}

TEST_P(SubnetConnectivityTest, ANodeWithoutAddressesHasNoSubnets) {
  v6->node("a");
  store->addInterface("i", "a", "i");
  EXPECT_THAT(subnets("a", 3), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

TEST_P(SubnetConnectivityTest, OnlyIPv6AddressesLeadIntoSubnets) {
  v6->chain({"a", "b"});
  v6->subnet("v4-net");
  store->addAddress("v4", "a/a-b", "a", "10.0.0.1", {{"SubnetObjId", "v4-net"}});
  v6->address("none", "a/a-b", nullptr);
  EXPECT_THAT(subnets("a", 1), ElementsAre("a-b"));
}

TEST_P(SubnetConnectivityTest, TheFacadeAnswersTheSameAndLooksAtNoPage) {
  v6->chain({"a", "b", "c"});
  BatchInfo page(1);
  const auto found = ZNTopoAPI().getNSubnetConnectivity(2, ObjID("a"), anySubnet(), status, &page);
  EXPECT_THAT(*found, ElementsAre(ObjID("a-b"), ObjID("b-c")));
  EXPECT_FALSE(page.hasNext());
  EXPECT_EQ(page.getResultSetID(), 0);
}

TEST_P(SubnetConnectivityTest, TheLogTellsNodeInterfaceAndAddress) {
  v6->chain({"a", "b"});
  const CapturedLog log;
  subnets("a", 1);
  std::vector<std::string> told;
  for (const std::string& line : log.lines()) {
    if (line.find("Processing ") == 0 || line.find("HAVE") == 0 || line.find("Number of hops") == 0)
      told.push_back(line);
  }
  EXPECT_THAT(told, ElementsAre("Number of hops for getSubnetConnectivity: 1 \n",
                                "Processing Node: a \n", "Processing Interface: a/a-b \n",
                                "Processing Address: a/a-b/address \n", "HAVE IPV6 ADDRESS \n"));
}

// ---- filters ----------------------------------------------------------------------------------

TEST_P(SubnetConnectivityTest, ASubnetOfAnotherScopeCutsTheWalk) {
  v6->chain({"a", "b", "c", "d"});
  store->execute("update address set V6ScopeType = 2 where ObjId = 'b-c'");
  const ZNTopoFilter global = ofScope(InetAddressIPv6::Global);
  EXPECT_THAT(subnets("a", 10, global), ElementsAre("a-b"));
  EXPECT_THAT(subnets("a", 10), ElementsAre("a-b", "b-c", "c-d"));
  EXPECT_TRUE(status.isOK());
  // What lies behind it is found on another way.
  v6->attach("d", "a-b");
  ZNTopoAPI_Impl::cache()->clear(true);
  EXPECT_THAT(subnets("a", 10, global), ElementsAre("a-b", "c-d"));
}

TEST_P(SubnetConnectivityTest, ASubnetOfAnotherLevelCutsTheWalk) {
  v6->chain({"a", "b", "c"});
  store->execute("update nwentity set IPLevel = 4 where ObjId = 'a-b'");
  EXPECT_THAT(subnets("a", 10, ofLevel(ZNEntity::IPv6)), IsEmpty());
  EXPECT_THAT(subnets("a", 1, ofLevel(ZNEntity::IPv4)), ElementsAre("a-b"));
  EXPECT_THAT(subnets("a", 10, ofLevel(ZNEntity::IPv4)), ElementsAre("a-b"));
  EXPECT_THAT(subnets("a", 10), ElementsAre("a-b", "b-c"));
}

TEST_P(SubnetConnectivityTest, AllOtherFieldsOfTheFilterAreNotLookedAt) {
  v6->chain({"a", "b"});
  ZNTopoFilter filter;
  filter.setAddressType(ZNAddress::Physical);
  filter.setRegexEntityName("nothing");
  filter.setAddressStr("nothing");
  filter.setCapabilityNames({});
  filter.setExcludeCapabilityNames({});
  filter.setOrCapabilityNames({});
  filter.setPrefixLength(7);
  filter.setPrefixAddressStr("nothing");
  filter.setEntityType(E_Vlan);
  EXPECT_THAT(subnets("a", 1, filter), ElementsAre("a-b"));
}

TEST_P(SubnetConnectivityTest, ASubnetPassesIfItsLevelAndItsScopeAreTheFilters) {
  v6->subnet("site", InetAddressIPv6::SiteLocal);
  store->addEntity("bare", "bare", 7, {{"IPLevel", 6}});
  EXPECT_TRUE(api.doesSubnetPassFilter("site", anySubnet()));
  EXPECT_TRUE(api.doesSubnetPassFilter("site", ofLevel(ZNEntity::IPv6)));
  EXPECT_FALSE(api.doesSubnetPassFilter("site", ofLevel(ZNEntity::IPv4)));
  EXPECT_TRUE(api.doesSubnetPassFilter("site", ofScope(InetAddressIPv6::SiteLocal)));
  EXPECT_FALSE(api.doesSubnetPassFilter("site", ofScope(InetAddressIPv6::Unknown)));
  // Without an address of its own a subnet has no scope.
  EXPECT_TRUE(api.doesSubnetPassFilter("bare", ofScope(InetAddressIPv6::Unknown)));
  EXPECT_FALSE(api.doesSubnetPassFilter("bare", ofScope(InetAddressIPv6::Global)));

  ZNTopoFilter both = ofLevel(ZNEntity::IPv6);
  both.setV6ScopeType(InetAddressIPv6::SiteLocal);
  EXPECT_TRUE(api.doesSubnetPassFilter("site", both));
  both.setIPLevel(ZNEntity::IPv4);
  EXPECT_FALSE(api.doesSubnetPassFilter("site", both));
}

TEST_P(SubnetConnectivityTest, TheScopesThatDifferAreLogged) {
  v6->subnet("site", InetAddressIPv6::SiteLocal);
  const CapturedLog log;
  api.doesSubnetPassFilter("site", ofScope(InetAddressIPv6::Global));
  const auto lines = log.lines();
  const auto first = std::find(lines.begin(), lines.end(), "SubnetScopeType = 2 \n");
  ASSERT_NE(first, lines.end());
  ASSERT_NE(std::next(first), lines.end());
  EXPECT_EQ(*std::next(first), "FilterScopeType = 3 \n");
}

TEST_P(SubnetConnectivityTest, TheScopesAreLoggedForTheMostTalkativeAlone) {
  v6->subnet("site", InetAddressIPv6::SiteLocal);
  const CapturedLog log(MC_TRACE_L1);
  api.doesSubnetPassFilter("site", ofScope(InetAddressIPv6::Global));
  EXPECT_THAT(log.lines(), Not(Contains("SubnetScopeType = 2 \n")));
}

// ---- what can't be read -----------------------------------------------------------------------

TEST_P(SubnetConnectivityTest, ASubnetWithoutARowIsNeitherReportedNorCrossed) {
  v6->chain({"a", "b", "c"});
  store->execute("delete from nwentity where ObjId = 'a-b'");
  EXPECT_THAT(subnets("a", 10), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_FALSE(api.doesSubnetPassFilter("a-b", anySubnet()));
  EXPECT_FALSE(api.doesSubnetPassFilter(ObjID(), anySubnet()));
  EXPECT_THAT(prepared({ObjID("a-b")}), IsEmpty());
}

TEST_P(SubnetConnectivityTest, AFailureBelowShortensTheResultAndTheStatusIsGood) {
  v6->chain({"a", "b", "c"});
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"'b-c'", {"a-b"}},                     // the second subnet
      {"a.NodeObjID in ", {}},                // interfaces
      {"a.SubnetObjID <> a.ObjID", {"a-b"}},  // end points
      {"NODE.ObjID in ('b')", {"a-b"}},       // the second node
  };
  for (const auto& [failing, found] : cases) {
    ZNTopoAPI_Impl::cache()->clear(true);
    StatementSpy spy;
    spy.fail(StatementSpy::Exec, failing);
    EXPECT_EQ(subnets("a", 10), found) << failing;
    expectFailure(ZN_API_SUCCESS, "");
  }
  EXPECT_THAT(subnets("a", 10), ElementsAre("a-b", "b-c"));
}

TEST_P(SubnetConnectivityTest, ANodeThatCannotBeReadIsTriedAgainOnTheNextHop) {
  v6->chain({"a", "b", "c"});
  v6->node("other");
  v6->attach("other", "a-b");
  StatementSpy spy;
  spy.failOnce(StatementSpy::Exec, "NODE.ObjID in ('b')", TvDbil::DBIL_ERROR, 1);
  EXPECT_THAT(subnets("a", 2), ElementsAre("a-b"));
  spy.failOnce(StatementSpy::Exec, "NODE.ObjID in ('b')", TvDbil::DBIL_ERROR, 1);
  EXPECT_THAT(subnets("a", 3), ElementsAre("a-b", "b-c"));
}

TEST_P(SubnetConnectivityTest, ARingOfNobodyEndsTheHops) {
  v6->chain({"a", "b", "c"});
  StatementSpy spy;
  spy.failOnce(StatementSpy::Exec, "NODE.ObjID in ('b')", TvDbil::DBIL_ERROR, 1);
  EXPECT_THAT(subnets("a", 10), ElementsAre("a-b"));
  EXPECT_TRUE(status.isOK());
}

// ---- the next ring ----------------------------------------------------------------------------

TEST_P(SubnetConnectivityTest, TheNextRingIsTheNodesThatWereNotMetEachOnce) {
  v6->chain({"a", "b", "c"});
  v6->attach("c", "a-b");
  v6->address("second", "b/a-b", "a-b");
  met[ObjID("a")] = api.getNodeByObjID("a", status);
  EXPECT_THAT(prepared({ObjID("a-b"), ObjID("b-c")}), testing::UnorderedElementsAre("b", "c"));
  EXPECT_THAT(met, SizeIs(3));
  EXPECT_FALSE(met[ObjID("b")].isNull());
  EXPECT_THAT(prepared({ObjID("a-b"), ObjID("b-c")}), IsEmpty());
}

TEST_P(SubnetConnectivityTest, ANodeWithoutARowKeepsANullEntry) {
  v6->subnet("s");
  v6->attach("ghost", "s");
  const StatementSpy spy;
  EXPECT_THAT(prepared({ObjID("s")}), IsEmpty());
  ASSERT_THAT(met, SizeIs(1));
  EXPECT_EQ(met.begin()->first, ObjID("ghost"));
  EXPECT_TRUE(met.begin()->second.isNull());
}

TEST_P(SubnetConnectivityTest, NodesAreAppendedBehindThoseThatAreThere) {
  v6->chain({"a", "b"});
  NodeList nodes = {madeNode("x")};
  api.prepareProcessingList({ObjID("a-b")}, nodes, met);
  ASSERT_THAT(nodes, SizeIs(3));
  EXPECT_EQ(nodes.front()->getObjID(), ObjID("x"));
}

// An identifier of digits is a number, which has no order among texts.
TEST_P(SubnetConnectivityTest, ANodeOfAnotherKindOfIdentifierDoesNotKeepTheWalkGoing) {
  v6->chain({"a", "b"});
  v6->node("17");
  v6->attach("17", "a-b");
  v6->subnet("far");
  v6->attach("17", "far");
  EXPECT_THAT(subnets("a", std::numeric_limits<int>::max()), ElementsAre("a-b"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(subnets("17", 1), ElementsAre("a-b", "far"));
}

TEST_P(SubnetConnectivityTest, ASubnetOfAnotherKindOfIdentifierIsLeftOut) {
  v6->node("a");
  for (const char* id : {"s", "17"}) {
    v6->subnet(id);
    v6->attach("a", id);
  }
  EXPECT_THAT(subnets("a", std::numeric_limits<int>::max()), SizeIs(1));
  EXPECT_TRUE(status.isOK());
}

// ---- the walk itself --------------------------------------------------------------------------

TEST_P(SubnetConnectivityTest, TheWalkAppendsToTheListThatItIsGiven) {
  v6->chain({"a", "b"});
  auto list = std::make_unique<std::list<ObjID>>(std::list<ObjID>{"before"});
  api.getSubnetConnectivity(list, 1, api.getNodeByObjID("a", status), anySubnet());
  EXPECT_THAT(*list, ElementsAre(ObjID("before"), ObjID("a-b")));
}

TEST_P(SubnetConnectivityTest, AWalkFromNoNodeOrWithoutHopsOrIntoNoListIsHarmless) {
  v6->chain({"a", "b"});
  const ZNRefPtr<ZNNode> start = api.getNodeByObjID("a", status);
  std::unique_ptr<std::list<ObjID>> list;
  api.getSubnetConnectivity(list, 1, ZNRefPtr<ZNNode>(), anySubnet());
  ASSERT_TRUE(list);
  EXPECT_THAT(*list, IsEmpty());
  api.getSubnetConnectivity(list, 0, start, anySubnet());
  EXPECT_THAT(*list, IsEmpty());
  list.reset();
  api.getSubnetConnectivity(list, 1, start, anySubnet());
  ASSERT_TRUE(list);
  EXPECT_THAT(*list, ElementsAre(ObjID("a-b")));
}

}  // namespace
}  // namespace zntopo::test
