#include <pthread.h>

#include <climits>

#include "tests/connectivity/Network.h"
#include "tests/support/CapturedLog.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Searches over made nodes that the cache hands out.
class FindPathTest : public ConnectivityTest {
 protected:
  void SetUp() override {
    ConnectivityTest::SetUp();
    ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
    // The first look at the state row empties the cache.
    api.getNodeByObjID("nobody", status);
    status.reset();
  }

  ZNRefPtr<ZNNode> node(const ObjID& id, const std::vector<ZNRefPtr<ZNConnData>>& records = {},
                        unsigned long capabilities = 0) {
    const auto made = madeNode(id, records, capabilities);
    api.useNode(made);
    return made;
  }
  ZNRefPtr<ZNNode> find(const NodeList& start, ZNRefPtr<ZNNode> end, int maxDepth = 100,
                        bool toCrossRouter = false) {
    dataPath.clear();
    visited.clear();
    return api.findPath(start, end, 1, maxDepth, dataPath, visited, status, toCrossRouter);
  }
  /// The links found, each as "source interface-destination interface".
  std::vector<std::string> links() const {
    std::vector<std::string> texts;
    for (const auto& link : dataPath) texts.push_back(textOf(ZNConnection(*link)));
    return texts;
  }

  std::list<ZNRefPtr<ZNConnData>> dataPath;
  std::set<ObjID> visited;
};

TEST_P(FindPathTest, ADirectNeighbourIsFoundFromTheStartNodeItself) {
  const auto a = node("a", {record("a1", "a", "b1", "b")});
  const auto b = node("b");
  EXPECT_EQ(find({a}, b, 1), a);
  EXPECT_THAT(links(), ElementsAre("a1-b1"));
}

TEST_P(FindPathTest, TheLinksStandInOrderAndTheLevelGivesTheMemberOfItsRing) {
  const auto a = node("a", {record("a1", "a", "b1", "b")});
  node("b", {record("a1", "a", "b1", "b", false), record("c1", "c", "b2", "b", false)});
  node("c", {record("c1", "c", "b2", "b"), record("c2", "c", "d1", "d")});
  const auto d = node("d", {record("c2", "c", "d1", "d", false)});
  EXPECT_EQ(find({a}, d), a);
  EXPECT_THAT(links(), ElementsAre("a1-b1", "c1-b2", "c2-d1"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(FindPathTest, ADepthBelowTheHopFindsNothing) {
  const auto a = node("a", {record("a1", "a", "b1", "b")});
  const auto b = node("b");
  EXPECT_TRUE(find({a}, b, 0).isNull());
  EXPECT_TRUE(find({a}, b, -1).isNull());
  ZNRefPtr<ZNNode> end = b;
  EXPECT_TRUE(api.findPath({a}, end, 3, 2, dataPath, visited, status, false).isNull());
  EXPECT_FALSE(api.findPath({a}, end, 3, 3, dataPath, visited, status, false).isNull());
}

TEST_P(FindPathTest, OfParallelLinksTheFirstIsTakenOnTheLastHopAndTheLastOnEarlierOnes) {
  const auto a = node("a", {record("a1", "a", "b1", "b"), record("a2", "a", "b2", "b"),
                            record("b3", "b", "a3", "a", false)});
  node("b", {record("b4", "b", "c4", "c"), record("c5", "c", "b5", "b", false)});
  const auto c = node("c");
  EXPECT_EQ(find({a}, c), a);
  EXPECT_THAT(links(), ElementsAre("b3-a3", "b4-c4"));
}

TEST_P(FindPathTest, AnEndThatCannotBeReadIsNotFoundAndItsRecordsStay) {
  const auto a = node("a", {record("a1", "a", "x1", "x"), record("a2", "a", "x2", "x")});
  EXPECT_TRUE(find({a}, madeNode("x")).isNull());
  EXPECT_THAT(links(), ElementsAre("a2-x2", "a1-x1"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(FindPathTest, RecordsWithoutANextHopAreSkipped) {
  const auto a = node("a", {record("a1", "a", "b1", ObjID()), record("a2", "a", "b2", "b")});
  EXPECT_EQ(find({a}, node("b")), a);
  EXPECT_THAT(links(), ElementsAre("a2-b2"));
}

TEST_P(FindPathTest, ALinkInsideARingDoesNoHarm) {
  const auto a = node("a", {record("a1", "a", "b1", "b"), record("a2", "a", "c1", "c")});
  node("b", {record("a1", "a", "b1", "b", false), record("b2", "b", "c2", "c")});
  node("c", {record("a2", "a", "c1", "c", false), record("b2", "b", "c2", "c", false),
             record("c3", "c", "d1", "d")});
  node("d", {record("c3", "c", "d1", "d", false), record("d2", "d", "e1", "e")});
  EXPECT_EQ(find({a}, node("e")), a);
  EXPECT_THAT(links(), ElementsAre("a2-c1", "c3-d1", "d2-e1"));
}

TEST_P(FindPathTest, ANodeThatLinksToItselfEndsInNoLoop) {
  const auto a = node("a", {record("a1", "a", "a2", "a"), record("a3", "a", "b1", "b")});
  node("b", {record("a3", "a", "b1", "b", false), record("b2", "b", "b3", "b", false)});
  EXPECT_TRUE(find({a}, madeNode("x"), INT_MAX).isNull());
}

TEST_P(FindPathTest, VisitedNodesAreThoseWhoseRecordsWereExpanded) {
  const auto a = node("a", {record("a1", "a", "b1", "b"), record("a2", "a", "r1", "r")});
  node("b", {record("b2", "b", "x1", "x")});
  node("r", {record("r2", "r", "x2", "x")}, 0x2);
  EXPECT_TRUE(find({a}, madeNode("nowhere")).isNull());
  EXPECT_THAT(textsOf(visited), ElementsAre("a", "b"));
  EXPECT_TRUE(find({a}, madeNode("nowhere"), 100, true).isNull());
  EXPECT_THAT(textsOf(visited), ElementsAre("a", "b", "r"));
}

TEST_P(FindPathTest, ANodeThatARequestDoesNotHandBackIsNotSearchedThrough) {
  // b is cached and c is not, so that their ring comes back without b, behind which d lies.
  const auto a = node("a", {record("a1", "a", "b1", "b"), record("a2", "a", "c1", "c")});
  node("b", {record("b2", "b", "d1", "d")});
  store->addNode("c", "c.net");
  EXPECT_TRUE(find({a}, node("d")).isNull());
  EXPECT_THAT(textsOf(visited), ElementsAre("a", "c"));
}

TEST_P(FindPathTest, NullHandlesAreNoNodes) {
  const auto b = node("b");
  EXPECT_TRUE(find({ZNRefPtr<ZNNode>()}, b).isNull());
  EXPECT_TRUE(find({b}, ZNRefPtr<ZNNode>()).isNull());
}

TEST_P(FindPathTest, TheLogTellsTheLevelsAsTheyNest) {
  const auto a = node("a", {record("a1", "a", "b1", "b")});
  node("b", {record("b2", "b", "c1", "c")});
  const auto c = node("c");
  const CapturedLog log;
  find({a}, c);
  std::vector<std::string> lines;
  for (const std::string& line : log.lines()) {
    for (const char* part :
         {"findPath", "EndNodeID", "start Node", "Next hop", "Adding", "New Node"}) {
      if (line.find(part) != std::string::npos) {
        lines.push_back(line);
        break;
      }
    }
  }
  EXPECT_THAT(lines,
              ElementsAre("+findPath\n", "EndNodeID c \n", "For start Node ID: a \n",
                          "Next hop Node ID: b \n", "New Node: b is NOT a router \n", "+findPath\n",
                          "EndNodeID c \n", "For start Node ID: b \n", "Next hop Node ID: c \n",
                          "Adding Connection Data for Found Node: c b \n", "-findPath\n",
                          "Node from findPath = b\n", "-findPath\n"));
}

/// What the thread with the small stack does.
struct DeepSearch {
  WalkImpl* api;
  ZNRefPtr<ZNNode> start;
  ZNRefPtr<ZNNode> end;
  std::size_t links = 0;

  static void* run(void* argument) {
    auto& self = *static_cast<DeepSearch*>(argument);
    std::list<ZNRefPtr<ZNConnData>> dataPath;
    std::set<ObjID> visited;
    ZNTopoAPIStatus status;
    const auto key =
        self.api->findPath({self.start}, self.end, 1, INT_MAX, dataPath, visited, status, false);
    if (key == self.start) self.links = dataPath.size();
    return nullptr;
  }
};

TEST_P(FindPathTest, ALongChainIsSearchedOnASmallStack) {
  constexpr int kNodes = 9000;
  DeepSearch search{&api, {}, {}};
  for (int i = 0; i < kNodes; ++i) {
    std::vector<ZNRefPtr<ZNConnData>> records;
    if (i + 1 < kNodes) {
      records.push_back(record(uuid(i, 'c'), uuid(i), uuid(i, 'd'), uuid(i + 1)));
    }
    const auto made = node(uuid(i), records);
    if (i == 0) search.start = made;
    search.end = made;
  }
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 512 * 1024), 0);
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, DeepSearch::run, &search), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
  EXPECT_EQ(search.links, kNodes - 1u);
}

ZNTOPO_ON_ENGINES(FindPathTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
