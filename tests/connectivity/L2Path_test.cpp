#include "tests/connectivity/Network.h"

namespace zntopo::test {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class L2PathTest : public ConnectivityTest {
 protected:
  /// The path between the addresses 10.0.0.1 and 10.0.0.2.
  std::vector<std::string> path(int maxDepth = 100, bool toCrossRouter = false) {
    return idsOf(
        *api.getL2Path("10.0.0.1", "10.0.0.2", maxDepth, status, ZNAddress::IPv4, toCrossRouter));
  }
  std::vector<std::string> pathBetween(const std::string& from, const std::string& to,
                                       int maxDepth = 100, bool toCrossRouter = false) {
    return idsOf(*api.getL2PathBetweenNodes(nameOf(from), nameOf(to), maxDepth, status,
                                            ZNAddress::IPv4, toCrossRouter));
  }
  void addresses(const std::string& from, const std::string& to) {
    net->address(from, "10.0.0.1");
    net->address(to, "10.0.0.2");
  }
};

// ---- between addresses ------------------------------------------------------------------------

TEST_P(L2PathTest, ATransitNodeShowsAsTwoInterfacesAndAnEndNodeByTheInterfaceOfItsAddress) {
  net->chain({"a", "b", "c"});
  addresses("a", "c");
  EXPECT_THAT(path(), ElementsAre("a:10.0.0.1", "a:b", "b:a", "b:c", "c:b", "c:10.0.0.2"));
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
}

TEST_P(L2PathTest, TheInterfaceThatOwnsTheAddressIsNotRepeatedIfTheLinkEndsThere) {
  net->node("a");
  net->node("b");
  net->interface("a1", "a", {{"hasAddress", 1}});
  net->interface("b1", "b", {{"hasAddress", 1}});
  store->addAddress("ad1", "a1", "a", "10.0.0.1");
  store->addAddress("ad2", "b1", "b", "10.0.0.2");
  store->addLink("b1", "a1", "b", "a");
  EXPECT_THAT(path(), ElementsAre("a1", "b1"));
}

TEST_P(L2PathTest, TwoAddressesOfOneNodeGiveTheirInterfacesWhateverTheDepth) {
  net->router("a");
  addresses("a", "a");
  EXPECT_THAT(path(0), ElementsAre("a:10.0.0.1", "a:10.0.0.2"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(idsOf(*api.getL2Path("10.0.0.1", "10.0.0.1", -5, status, ZNAddress::IPv4, false)),
              ElementsAre("a:10.0.0.1", "a:10.0.0.1"));
}

TEST_P(L2PathTest, TheDepthCountsLinks) {
  net->chain({"a", "b", "c"});
  addresses("a", "c");
  for (const int depth : {-1, 0, 1}) {
    EXPECT_THAT(path(depth), IsEmpty());
    EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
    EXPECT_EQ(status.getAuxMsg(), "Unable to find path from 10.0.0.1 to 10.0.0.2\n");
  }
  EXPECT_THAT(path(2), SizeIs(6));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(pathBetween("a", "b", 1), ElementsAre("a:b", "b:a"));
}

TEST_P(L2PathTest, LinksAreCrossedWhicheverWayRoundTheyAreStored) {
  for (const char* id : {"a", "b", "c", "d"}) net->node(id);
  net->link("b", "a");
  net->link("b", "c");
  net->link("d", "c");
  addresses("a", "d");
  EXPECT_THAT(path(),
              ElementsAre("a:10.0.0.1", "a:b", "b:a", "b:c", "c:b", "c:d", "d:c", "d:10.0.0.2"));
}

TEST_P(L2PathTest, OfTwoWaysRoundARingTheShorterIsTaken) {
  net->chain({"a", "b", "c", "d", "e"});
  net->link("e", "a");
  addresses("a", "d");
  EXPECT_THAT(path(), ElementsAre("a:10.0.0.1", "a:e", "e:a", "e:d", "d:e", "d:10.0.0.2"));
}

TEST_P(L2PathTest, AStoreThatIsNotReadyGivesNothing) {
  store->execute("update state set TopologyReady = 0");
  EXPECT_THAT(path(), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
}

TEST_P(L2PathTest, AnUnknownSourceAddressIsTold) {
  net->node("b");
  net->address("b", "10.0.0.2");
  EXPECT_THAT(path(), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_UNKNOWN_IP);
  EXPECT_EQ(status.getAuxMsg(),
            "Failed to retrieve source node for specified source IP  address in getL2Path() \n");
}

TEST_P(L2PathTest, AnUnknownDestinationAddressIsTold) {
  net->node("a");
  net->address("a", "10.0.0.1");
  EXPECT_THAT(path(), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_UNKNOWN_IP);
  EXPECT_EQ(status.getAuxMsg(),
            "Failed to retrieve destination node for specified destination IP address in "
            "getL2Path() \n");
}

TEST_P(L2PathTest, AManagementAddressThatNoInterfaceOwnsIsTold) {
  net->node("a", {{"PubV4ManagementAdd", "10.0.0.1"}});
  net->node("b");
  net->address("b", "10.0.0.2");
  EXPECT_THAT(path(), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_UNKNOWN_IP);
  EXPECT_EQ(status.getAuxMsg(),
            "Failed to retrieve interface for a specified IP address in getL2Path() \n");
}

TEST_P(L2PathTest, TheSecondAddressOfItsTypeOnAnInterfaceIsNotFoundThere) {
  net->chain({"a", "b"});
  addresses("a", "b");
  store->addAddress("10.0.0.3", "b:10.0.0.2", "b", "10.0.0.3");
  const auto to = [&](const char* ip) {
    ZNTopoAPI_Impl::cache()->clear(true);
    return api.getL2Path("10.0.0.1", ip, 5, status, ZNAddress::IPv4, false)->size();
  };
  // The order of the two rows is the engine's: one of them is found and the other is not.
  EXPECT_EQ((to("10.0.0.2") > 0) + (to("10.0.0.3") > 0), 1);
}

TEST_P(L2PathTest, AnAddressOfAnotherTypeIsNotFound) {
  net->chain({"a", "b"});
  addresses("a", "b");
  EXPECT_THAT(*api.getL2Path("10.0.0.1", "10.0.0.2", 5, status, ZNAddress::IPv6, false), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_UNKNOWN_IP);
}

// ---- routers ----------------------------------------------------------------------------------

TEST_P(L2PathTest, ARouterEndsAPathUnlessItMayBeCrossed) {
  for (const char* flag : {"isIPV4Router", "isIPV6Router"}) {
    store->execute("delete from nwnode where ObjId = 'r'");
    store->execute("delete from nwentity where ObjId = 'r'");
    if (!store->value("select ObjId from nwnode where ObjId = 'a'")) {
      net->node("a");
      net->node("b");
      net->link("a", "r");
      net->link("r", "b");
      addresses("a", "b");
    }
    net->node("r", {{flag, 1}});
    EXPECT_THAT(path(), IsEmpty()) << flag;
    EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH) << flag;
    EXPECT_THAT(path(100, true), SizeIs(6)) << flag;
    EXPECT_TRUE(status.isOK()) << flag;
  }
}

TEST_P(L2PathTest, ARouterMayBeTheEndAndTheStartOfAPath) {
  net->router("r");
  net->node("a");
  net->router("s");
  net->link("r", "a");
  net->link("a", "s");
  addresses("r", "s");
  EXPECT_THAT(path(), ElementsAre("r:10.0.0.1", "r:a", "a:r", "a:s", "s:a", "s:10.0.0.2"));
}

TEST_P(L2PathTest, APathGoesRoundARouter) {
  net->router("r");
  net->chain({"a", "b", "c", "d"});
  net->link("a", "r");
  net->link("r", "d");
  addresses("a", "d");
  EXPECT_THAT(path(), SizeIs(8));
  EXPECT_THAT(path(100, true), SizeIs(6));
}

// ---- links that lead nowhere ------------------------------------------------------------------

TEST_P(L2PathTest, ANodeWithoutARowIsNotPassed) {
  net->node("a");
  net->node("b");
  net->link("a", "ghost");
  net->link("ghost", "b");
  addresses("a", "b");
  EXPECT_THAT(path(), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  // Beside another way it does no harm.
  net->node("c");
  net->link("a", "c");
  net->link("c", "b");
  EXPECT_THAT(path(), ElementsAre("a:10.0.0.1", "a:c", "c:a", "c:b", "b:c", "b:10.0.0.2"));
}

TEST_P(L2PathTest, AFailureOfTheStoreDuringTheSearchIsNoPathAndItsReasonIsNotTold) {
  net->chain({"a", "b", "c"});
  addresses("a", "c");
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "NODE.ObjID in ('b')");
  EXPECT_THAT(path(), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  EXPECT_EQ(status.getAuxMsg(), "Unable to find path from 10.0.0.1 to 10.0.0.2\n");
}

// ---- between nodes ----------------------------------------------------------------------------

TEST_P(L2PathTest, APathBetweenNodesBeginsAndEndsAtConnectedInterfaces) {
  net->chain({"a", "b", "c"});
  EXPECT_THAT(pathBetween("a", "c"), ElementsAre("a:b", "b:a", "b:c", "c:b"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(L2PathTest, TheFirstPairOfInterfacesWins) {
  net->chain({"a", "b"});
  net->node("x");
  // By its identifier this interface comes first, though the path leaves by another.
  store->addInterface("a:0", "a", "a:0", {{"isL2Connected", 1}});
  store->addInterface("x:0", "x", "x:0");
  store->addLink("a:0", "x:0", "a", "x");
  const auto found = pathBetween("a", "b");
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(found, AnyOf(ElementsAre("a:0", "a:b", "b:a"), ElementsAre("a:b", "b:a")));
}

TEST_P(L2PathTest, ANameThatIsNotFoundIsToldForEachEnd) {
  net->chain({"a", "b"});
  EXPECT_THAT(pathBetween("x", "b"), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_OBJ_NOT_EXIST);
  EXPECT_EQ(status.getAuxMsg(),
            "Failed to find source node for specified hostname or management IP address in "
            "getL2PathBetweenNodes() \n");
  EXPECT_THAT(pathBetween("a", "x"), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_OBJ_NOT_EXIST);
  EXPECT_EQ(status.getAuxMsg(),
            "Failed to find destination node for specified hostname or management IP address  in "
            "getL2Path() \n");
}

TEST_P(L2PathTest, ANodeWithoutConnectedInterfacesHasNoPath) {
  net->chain({"a", "b"});
  net->node("x");
  EXPECT_THAT(pathBetween("x", "b"), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  EXPECT_EQ(status.getAuxMsg(),
            "No L2 connected interfaces exist for source node in getL2PathBetweenNodes() \n");
  EXPECT_THAT(pathBetween("a", "x"), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  EXPECT_EQ(status.getAuxMsg(),
            "No L2 connected interfaces exist for destination node in getL2PathBetweenNodes() \n");
}

TEST_P(L2PathTest, UnconnectedNodesHaveNoPath) {
  net->chain({"a", "b"});
  net->chain({"c", "d"});
  EXPECT_THAT(pathBetween("a", "c"), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  EXPECT_EQ(status.getAuxMsg(), "No path found between nodes in getL2PathBetweenNodes() \n");
}

TEST_P(L2PathTest, APathBetweenANodeAndItselfIsAtOneInterface) {
  net->chain({"a", "b"});
  EXPECT_THAT(pathBetween("a", "a", 0), ElementsAre("a:b", "a:b"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(L2PathTest, AnElementThatCannotBeFetchedEndsTheSearchOfPairs) {
  net->chain({"a", "b", "c"});
  store->execute("delete from nwinterface where ObjId = 'b:a'");
  EXPECT_THAT(pathBetween("a", "c"), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_PATH_PROCESSING_ERROR);
  EXPECT_EQ(status.getAuxMsg(),
            "NULL interface in path \nError in determining path in getL2PathBetweenNodes()\n");
}

TEST_P(L2PathTest, PathsBetweenNodesAskForNoReadiness) {
  // The look-ups on the way do, and find nothing.
  net->chain({"a", "b"});
  store->execute("update state set TopologyReady = 0");
  EXPECT_THAT(pathBetween("a", "b"), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_OBJ_NOT_EXIST);
}

ZNTOPO_ON_ENGINES(L2PathTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
