#include "tests/connectivity/Network.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

class NeighborConnectivityTest : public ConnectivityTest {
 protected:
  std::vector<std::string> neighbors(const std::string& node, int hops, int maxNodes = 1000) {
    return textsOf(*api.getNodeNeighbors(nameOf(node), status, hops, maxNodes));
  }
  /// A walk over made nodes: one hop that stays on them.
  std::vector<std::string> walk(const NodeList& nodes, int maxNodes = 1000) {
    exceeded = false;
    return textsOf(*api.getNeighbors2(nodes, 1, maxNodes, exceeded, false));
  }

  bool exceeded = false;
};

TEST_P(NeighborConnectivityTest, OneHopGivesTheLinksOfTheStartAndThoseBetweenItsNeighbours) {
  for (const char* id : {"a", "b", "c"}) net->node(id);
  net->link("a", "b");
  net->link("a", "c");
  net->link("c", "b");
  EXPECT_THAT(neighbors("a", 1), UnorderedElementsAre("a:b-b:a", "a:c-c:a", "c:b-b:c"));
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
}

TEST_P(NeighborConnectivityTest, ALinkBeyondTheLastRingIsLeftOut) {
  net->chain({"a", "b", "c", "d"});
  EXPECT_THAT(neighbors("a", 1), ElementsAre("a:b-b:a"));
  EXPECT_THAT(neighbors("a", 2), ElementsAre("a:b-b:a", "b:c-c:b"));
  EXPECT_THAT(neighbors("b", 1), UnorderedElementsAre("a:b-b:a", "b:c-c:b"));
  EXPECT_THAT(neighbors("a", 100), ElementsAre("a:b-b:a", "b:c-c:b", "c:d-d:c"));
}

TEST_P(NeighborConnectivityTest, ConnectionsComeHopByHop) {
  for (const char* id : {"a", "b", "c", "d", "e"}) net->node(id);
  net->link("d", "b");
  net->link("c", "e");
  net->link("b", "a");
  net->link("c", "a");
  const auto found = neighbors("a", 2);
  ASSERT_THAT(found, SizeIs(4));
  EXPECT_THAT(std::vector(found.begin(), found.begin() + 2),
              UnorderedElementsAre("b:a-a:b", "c:a-a:c"));
}

TEST_P(NeighborConnectivityTest, NoHopsAreRefusedBeforeTheNameIsLookedAt) {
  const StatementSpy spy;
  for (const int hops : {0, -1}) {
    EXPECT_THAT(*api.getNodeNeighbors("", status, hops, 10), IsEmpty());
    EXPECT_EQ(status.getStatus(), ZN_API_INVALID_NUM_HOPS);
    EXPECT_EQ(status.getAuxMsg(), "");
  }
  EXPECT_THAT(spy.statements(), IsEmpty());
}

TEST_P(NeighborConnectivityTest, AStoreThatIsNotReadyGivesNothing) {
  net->chain({"a", "b"});
  store->execute("update state set TopologyReady = 0");
  EXPECT_THAT(neighbors("a", 0), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
}

TEST_P(NeighborConnectivityTest, ANameThatIsNotResolvedKeepsItsStatus) {
  EXPECT_THAT(neighbors("nobody", 1), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_OBJ_NOT_EXIST);
  EXPECT_THAT(*api.getNodeNeighbors("", status, 1, 10), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_ILLEGAL_INPUT);
}

TEST_P(NeighborConnectivityTest, ANameOfTwoNodesIsNotUnique) {
  net->chain({"switch1", "switch2"});
  EXPECT_THAT(*api.getNodeNeighbors("switch", status, 1, 10), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_NONUNIQUE_NAME);
}

TEST_P(NeighborConnectivityTest, ANodeWithoutConnectionsHasNoneAndAGoodStatus) {
  net->node("a");
  EXPECT_THAT(neighbors("a", 3), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

TEST_P(NeighborConnectivityTest, ParallelLinksAreAllReportedAndCountTwoNodes) {
  net->node("a");
  net->node("b");
  net->link("a", "b", "1");
  net->link("b", "a", "2");
  EXPECT_THAT(neighbors("a", 1, 3), UnorderedElementsAre("a:b1-b:a1", "b:a2-a:b2"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(NeighborConnectivityTest, TheCeilingIsReachedAtEqualityAndThePartIsDelivered) {
  net->chain({"a", "b", "c", "d"});
  struct {
    int maxNodes;
    std::size_t connections;
    bool isReached;
  } const cases[] = {{0, 1, true}, {1, 1, true}, {2, 1, true},
                     {3, 2, true}, {4, 3, true}, {5, 3, false}};
  for (const auto& expected : cases) {
    EXPECT_THAT(neighbors("a", 10, expected.maxNodes), SizeIs(expected.connections))
        << expected.maxNodes;
    EXPECT_EQ(status.getStatus(),
              expected.isReached ? ZN_API_INCOMPLETE_NEIGHBOR_INFO : ZN_API_SUCCESS);
    EXPECT_EQ(status.getAuxMsg(),
              expected.isReached
                  ? "Neighbor processing returns more than specified maximum number of nodes\n"
                  : "");
  }
}

TEST_P(NeighborConnectivityTest, ANegativeCeilingIsNone) {
  net->chain({"a", "b", "c", "d"});
  EXPECT_THAT(neighbors("a", 10, -1), SizeIs(3));
  EXPECT_TRUE(status.isOK());
}

TEST_P(NeighborConnectivityTest, ALinkToANodeWithoutARowIsNotReported) {
  net->chain({"a", "b"});
  net->link("a", "ghost");
  EXPECT_THAT(neighbors("a", 3), ElementsAre("a:b-b:a"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(NeighborConnectivityTest, ALinkOfANodeToItselfIsDropped) {
  net->chain({"a", "b"});
  net->interface("a1", "a");
  net->interface("a2", "a");
  store->addLink("a1", "a2", "a", "a");
  EXPECT_THAT(neighbors("a", 1), ElementsAre("a:b-b:a"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(NeighborConnectivityTest, ARingThatCannotBeReadIsLeftOutWithAGoodStatus) {
  net->chain({"a", "b", "c"});
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "NODE.ObjID in ('c')");
  EXPECT_THAT(neighbors("a", 5), ElementsAre("a:b-b:a"));
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
}

TEST_P(NeighborConnectivityTest, EachHopCostsOneRequestForItsRing) {
  for (const char* id : {"a", "b", "c", "d"}) net->node(id);
  net->link("a", "b");
  net->link("a", "c");
  net->link("b", "d");
  net->link("c", "d");
  const StatementSpy spy;
  EXPECT_THAT(neighbors("a", 2), SizeIs(4));
  int requests = 0;
  for (const std::string& sql : spy.statements()) {
    requests += sql.find("NODE.ObjID in (") != std::string::npos;
  }
  // One for the start node and one a ring.
  EXPECT_EQ(requests, 3);
}

TEST_P(NeighborConnectivityTest,
       ARingThatIsHalfInTheCacheLosesItsCachedHalfUntilItIsAskedForAlone) {
  ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
  for (const char* id : {"a", "b", "c"}) net->node(id);
  net->link("a", "b");
  net->link("a", "c");
  net->link("b", "c");
  api.getNodeByObjID("b", status);
  EXPECT_THAT(neighbors("a", 1), ElementsAre("a:c-c:a"));

  ZNTopoAPI_Impl::cache()->clear(true);
  api.getNodeByObjID("b", status);
  EXPECT_THAT(neighbors("a", 2), ElementsAre("a:c-c:a", "b:c-c:b"));
}

// ---- the walk on made nodes -------------------------------------------------------------------

TEST_P(NeighborConnectivityTest, NoStartNodesGiveNothing) {
  EXPECT_THAT(walk({}), IsEmpty());
  EXPECT_THAT(walk({ZNRefPtr<ZNNode>()}), IsEmpty());
}

TEST_P(NeighborConnectivityTest, WithoutUpdatesTheWalkStaysOnTheGivenNodesWhateverTheHops) {
  const auto a = madeNode("a", {record("a1", "a", "b1", "b"), record("a2", "a", "c1", "c")});
  const auto b = madeNode("b", {record("a1", "a", "b1", "b", false), record("b2", "b", "c2", "c")});
  const StatementSpy spy;
  EXPECT_THAT(textsOf(*api.getNeighbors2({a, b}, 5, 100, exceeded, false)), ElementsAre("a1-b1"));
  EXPECT_FALSE(exceeded);
  EXPECT_THAT(spy.allStatements(), IsEmpty());
}

TEST_P(NeighborConnectivityTest, ARecordWithoutAnInterfaceIsLeftOut) {
  const auto b = madeNode("b");
  EXPECT_THAT(walk({madeNode("a", {record(ObjID(), "a", "b1", "b"), record("a2", "a", ObjID(), "b"),
                                   record("a3", "a", "b3", "b")}),
                    b}),
              ElementsAre("a3-b3"));
}

TEST_P(NeighborConnectivityTest, ARecordWithoutANodeIsLeftOut) {
  EXPECT_THAT(walk({madeNode("a", {record("a1", ObjID(), "b1", "b"),
                                   record("a2", "a", "b2", ObjID()), record("a3", "a", "b3", "b")}),
                    madeNode("b")}),
              ElementsAre("a3-b3"));
}

TEST_P(NeighborConnectivityTest, RecordsStoredEitherWayRoundAreReportedOnceAsTheyStand) {
  const auto a = madeNode("a", {record("a1", "a", "b1", "b"), record("b2", "b", "a2", "a", false)});
  const auto b = madeNode("b", {record("a1", "a", "b1", "b", false), record("b2", "b", "a2", "a")});
  EXPECT_THAT(walk({a, b}), ElementsAre("a1-b1", "b2-a2"));
}

TEST_P(NeighborConnectivityTest, ACeilingThatIsReachedStopsTheWalk) {
  const auto a = madeNode("a", {record("a1", "a", "b1", "b"), record("a2", "a", "c2", "c")});
  EXPECT_THAT(walk({a, madeNode("b"), madeNode("c")}, 2), ElementsAre("a1-b1"));
  EXPECT_TRUE(exceeded);
}

TEST_P(NeighborConnectivityTest, AFlagThatIsSetAlreadyLetsNothingBeWalked) {
  const auto a = madeNode("a", {record("a1", "a", "b1", "b")});
  exceeded = true;
  EXPECT_THAT(*api.getNeighbors2({a, madeNode("b")}, 1, 100, exceeded, false), IsEmpty());
}

TEST_P(NeighborConnectivityTest, TheNextRingEntersTheSetAndTheRingItselfIsNotAskedFor) {
  net->chain({"a", "b", "c", "d"});
  net->link("b", "ghost");
  std::set<ObjID> admitted = {"a"};
  NodeList ring;
  for (const char* id : {"b", "c"}) ring.push_back(api.getNodeByObjID(id, status));
  const auto next = api.createNewNodeList(ring, admitted);
  EXPECT_THAT(idsOf(*next), ElementsAre("d"));
  EXPECT_THAT(textsOf(admitted), ElementsAre("a", "d"));
}

TEST_P(NeighborConnectivityTest, ANodeCountsAsProcessedIfItIsInTheSet) {
  EXPECT_TRUE(api.processedNode("a", {"a", "b"}));
  EXPECT_FALSE(api.processedNode("c", {"a", "b"}));
  EXPECT_FALSE(api.processedNode(ObjID(), {"a"}));
  EXPECT_FALSE(api.processedNode(ObjID(3), {"a"}));
}

ZNTOPO_ON_ENGINES(NeighborConnectivityTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
