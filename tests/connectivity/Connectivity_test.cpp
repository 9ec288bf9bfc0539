// The layer-2 connections around a set of nodes.

#include "tests/connectivity/Network.h"
#include "tests/support/CapturedLog.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

class AroundNodesTest : public ConnectivityTest {
 protected:
  /// The links around nodes, or with alone those between them.
  std::vector<std::string> around(const std::set<ObjID>& ids, bool alone = false,
                                  bool isQRMID = false) {
    return textsOf(*api.getConnectivity(ids, notFound, status, !alone, isQRMID));
  }
};
ZNTOPO_ON_ENGINES(AroundNodesTest, kEngines);

TEST_P(AroundNodesTest, AnEmptySetIsRefusedBeforeTheStoreIsAsked) {
  store->execute("update state set TopologyReady = 0");
  const StatementSpy spy;
  EXPECT_THAT(around({}), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_EQ(status.getAuxMsg(), "The Node ID List is empty for getConnectivity()\n");
  EXPECT_THAT(spy.allStatements(), IsEmpty());
}

TEST_P(AroundNodesTest, AStoreThatIsNotReadyGivesNothing) {
  net->chain({"a", "b"});
  store->execute("update state set TopologyReady = 0");
  const CapturedLog log(MC_CRITICAL);
  EXPECT_THAT(around({"a"}), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
  EXPECT_THAT(log.lines(), Contains("Topology is not ready\n"));
}

TEST_P(AroundNodesTest, AFailedReadKeepsItsStatus) {
  net->chain({"a", "b"});
  const CapturedLog log;
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "NODE.ObjID in ('a')");
  EXPECT_THAT(around({"a"}), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_THAT(log.lines(), Contains(" getNodesByObjIDList() call fail ! \n"));
}

TEST_P(AroundNodesTest, UnknownNodesAloneAreInvalid) {
  EXPECT_THAT(around({"x", "y"}), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(),
            "Unable to find any nodes associated with the entered Node Id List\n");
  EXPECT_THAT(textsOf(notFound), ElementsAre("x", "y"));
}

TEST_P(AroundNodesTest, TheNullIdentifierAloneGivesAFailureAndNothing) {
  EXPECT_THAT(around({ObjID()}), IsEmpty());
  EXPECT_FALSE(status.isOK());
}

TEST_P(AroundNodesTest, TheNeighboursOneHopOutCountAndThoseBehindThemDoNot) {
  net->chain({"a", "b", "c", "d", "e"});
  EXPECT_THAT(around({"c"}), UnorderedElementsAre("b:c-c:b", "c:d-d:c"));
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
  EXPECT_THAT(notFound, IsEmpty());
  EXPECT_THAT(around({"a", "e"}), UnorderedElementsAre("a:b-b:a", "d:e-e:d"));
}

TEST_P(AroundNodesTest, LinksBetweenTheNeighboursCount) {
  for (const char* id : {"a", "b", "c"}) net->node(id);
  net->link("a", "b");
  net->link("a", "c");
  net->link("b", "c");
  EXPECT_THAT(around({"a"}), UnorderedElementsAre("a:b-b:a", "a:c-c:a", "b:c-c:b"));
}

TEST_P(AroundNodesTest, WithoutTheNeighboursOnlyLinksBetweenTheNodesCount) {
  net->chain({"a", "b", "c", "d"});
  EXPECT_THAT(around({"a", "b", "d"}, true), ElementsAre("a:b-b:a"));
  EXPECT_THAT(around({"a", "c"}, true), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

TEST_P(AroundNodesTest, UnknownNodesAreToldAndTheOthersAnswered) {
  net->chain({"a", "b", "c"});
  EXPECT_THAT(around({"a", "x", "y"}), ElementsAre("a:b-b:a"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(textsOf(notFound), ElementsAre("x", "y"));
}

TEST_P(AroundNodesTest, LegacyIdentifiersNameTheNodes) {
  net->node("a", {{"QRMObjId", "17"}});
  net->node("b", {{"QRMObjId", "18"}});
  net->link("a", "b");
  EXPECT_THAT(around({ObjID("17")}, false, true), ElementsAre("a:b-b:a"));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(around({ObjID("17")}), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
}

// A request that the cache can serve in part is answered with what it can't serve.
TEST_P(AroundNodesTest, CachedNodesOfAMixedRequestCountAsNotFound) {
  ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
  net->chain({"a", "b"});
  api.getNodeByObjID("b", status);
  EXPECT_THAT(around({"a", "b"}, true), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(textsOf(notFound), ElementsAre("b"));
  // Now all of them are cached.
  EXPECT_THAT(around({"a", "b"}, true), ElementsAre("a:b-b:a"));
}

TEST_P(AroundNodesTest, ANeighbourhoodOfTwoHundredNodesIsCutAndTheStatusDoesNotTell) {
  net->node("hub");
  for (int i = 0; i < 199; ++i) {
    const std::string leaf = "leaf" + std::to_string(i);
    net->node(leaf);
    net->link("hub", leaf);
  }
  // The hub and its leaves are two hundred: the last link reaches the ceiling and is still there.
  EXPECT_THAT(around({"hub"}), SizeIs(199));
  net->node("one-more");
  net->link("hub", "one-more");
  EXPECT_THAT(around({"hub"}), SizeIs(199));
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
}

TEST_P(AroundNodesTest, TheFacadeAnswersTheSame) {
  net->chain({"a", "b", "c"});
  EXPECT_THAT(textsOf(*ZNTopoAPI().getConnectivity({"a", "x"}, notFound, status, true, false)),
              ElementsAre("a:b-b:a"));
  EXPECT_THAT(textsOf(notFound), ElementsAre("x"));
}

}  // namespace
}  // namespace zntopo::test
