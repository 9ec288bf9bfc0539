// Turning the links of a path into interfaces, and interfaces into links.

#include "tests/connectivity/Network.h"
#include "tests/support/CapturedLog.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Paths over made nodes and interfaces that the cache hands out; what is not made is not to be
/// had.
class PathElementsTest : public ConnectivityTest {
 protected:
  void SetUp() override {
    ConnectivityTest::SetUp();
    ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
    // The first look at the state row empties the cache.
    api.getNodeByObjID("nobody", status);
    status.reset();
  }

  ZNRefPtr<ZNNode> node(const ObjID& id, const std::vector<ZNRefPtr<ZNConnData>>& records = {}) {
    const auto made = madeNode(id, records);
    api.useNode(made);
    return made;
  }
  ZNRefPtr<ZNInterface> interface(const ObjID& id, const ObjID& nodeID) {
    const auto made = madeInterface(id, nodeID);
    api.useInterface(made);
    return made;
  }
  std::vector<std::string> path(const ZNRefPtr<ZNNode>& from, const ZNRefPtr<ZNInterface>& out,
                                const ZNRefPtr<ZNNode>& to, const ZNRefPtr<ZNInterface>& in) {
    return idsOf(
        *api.getL2PathBetweenInterfaces(from, out, to, in, 10, status, ZNAddress::IPv4, false));
  }
  /// Walks from a to b and expects that an element is not to be had.
  void expectProblem(const ZNRefPtr<ZNNode>& from, const ZNRefPtr<ZNInterface>& out,
                     const ZNRefPtr<ZNNode>& to, const ZNRefPtr<ZNInterface>& in,
                     const std::string& line, const std::string& auxMsg) {
    const CapturedLog log(MC_MAJOR);
    EXPECT_THAT(path(from, out, to, in), IsEmpty());
    EXPECT_EQ(status.getStatus(), ZN_API_PATH_PROCESSING_ERROR);
    EXPECT_EQ(status.getAuxMsg(), auxMsg);
    EXPECT_THAT(log.lines(), Contains(line));
  }
  std::vector<std::string> converted(const std::list<ZNRefPtr<ZNInterface>>& interfaces) {
    std::vector<std::string> texts;
    const auto links = api.convertPathInterfaceListToConnDataList(interfaces, status);
    for (const auto& link : *links) {
      EXPECT_TRUE(link->isNodeSide());
      texts.push_back(link->getSrcNodeObjID().getStrValue() + "/" + textOf(ZNConnection(*link)) +
                      "/" + link->getDestNodeObjID().getStrValue());
    }
    return texts;
  }

  const std::string kNullInterface = "NULL interface in path \n";
  const std::string kNullNode = "NULL node in path \n";
};

TEST_P(PathElementsTest, OneNodeGivesItsTwoInterfacesAndLeavesTheStatus) {
  const auto a = node("a");
  status.setStatus(ZN_API_UNKNOWN_IP);
  EXPECT_THAT(path(a, interface("a1", "a"), a, interface("a2", "a")), ElementsAre("a1", "a2"));
  EXPECT_EQ(status.getStatus(), ZN_API_UNKNOWN_IP);
  const auto a1 = interface("a1", "a");
  EXPECT_THAT(path(a, a1, a, a1), ElementsAre("a1", "a1"));
}

TEST_P(PathElementsTest, TheInterfacesOfTheLinksAreInsertedWhereTheyAreNotTheEnds) {
  const auto a = node("a", {record("a1", "a", "b1", "b")});
  const auto b = node("b");
  const auto a1 = interface("a1", "a");
  const auto b1 = interface("b1", "b");
  const auto a0 = interface("a0", "a");
  const auto b0 = interface("b0", "b");
  EXPECT_THAT(path(a, a1, b, b1), ElementsAre("a1", "b1"));
  EXPECT_THAT(path(a, a0, b, b1), ElementsAre("a0", "a1", "b1"));
  EXPECT_THAT(path(a, a0, b, b0), ElementsAre("a0", "a1", "b1", "b0"));
}

TEST_P(PathElementsTest, ATransitNodeThatIsLeftByTheInterfaceOfItsEntryShowsOnce) {
  const auto a = node("a", {record("a1", "a", "b1", "b")});
  node("b", {record("b1", "b", "c1", "c")});
  const auto c = node("c");
  interface("b1", "b");
  EXPECT_THAT(path(a, interface("a1", "a"), c, interface("c1", "c")),
              ElementsAre("a1", "b1", "c1"));
}

TEST_P(PathElementsTest, NoWayIsNoPathWithoutAText) {
  status.setStatus(ZN_API_UNKNOWN_IP);
  status.addAuxMsg("of before");
  EXPECT_THAT(path(node("a"), interface("a1", "a"), node("b"), interface("b1", "b")), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  EXPECT_EQ(status.getAuxMsg(), "");
}

TEST_P(PathElementsTest, NullHandlesAreNoEndsOfAPath) {
  const auto a = node("a");
  const auto a1 = interface("a1", "a");
  EXPECT_THAT(path({}, a1, a, a1), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  EXPECT_THAT(path(a, {}, a, a1), IsEmpty());
  EXPECT_THAT(path(a, a1, {}, a1), IsEmpty());
  EXPECT_THAT(path(a, a1, a, {}), IsEmpty());
}

// ---- elements that are not to be had ----------------------------------------------------------

TEST_P(PathElementsTest, ForwardsTheNearInterfaceIsMissing) {
  const auto a = node("a", {record("a1", "a", "b1", "b")});
  const auto b1 = interface("b1", "b");
  expectProblem(a, interface("a0", "a"), node("b"), b1,
                "Found NULL Interface a1 in Path, can't continue \n", kNullInterface);
}

TEST_P(PathElementsTest, ForwardsTheFarInterfaceIsMissing) {
  const auto a = node("a", {record("a1", "a", "b1", "b")});
  expectProblem(a, interface("a1", "a"), node("b"), madeInterface("b0", "b"),
                "FOUND NULL Interface for b1, can't compute path!! \n", kNullInterface);
}

TEST_P(PathElementsTest, ForwardsTheNearNodeHasNoIdentifier) {
  const auto nobody = madeNode(ObjID(), {record("a1", ObjID(), "b1", "b")});
  expectProblem(nobody, interface("a1", "a"), node("b"), interface("b1", "b"),
                "Found NULL node for NULL, can't compute path!! \n", "");
}

TEST_P(PathElementsTest, ForwardsTheFarNodeIsMissing) {
  // A first record that leads elsewhere than it says brings the walk to the end too early, and
  // from there the second one is crossed the wrong way.
  const auto a = node("a", {record("e1", "e", "a1", "b")});
  node("b", {record("e2", "e", "z1", "z", false)});
  const auto e = node("e");
  interface("e1", "e");
  interface("e2", "e");
  interface("z1", "z");
  expectProblem(a, interface("a1", "a"), e, interface("e0", "e"),
                "FOUND NULL node for z, can't computer path!! \n", kNullNode);
}

TEST_P(PathElementsTest, BackwardsTheNearInterfaceIsMissing) {
  const auto a = node("a", {record("b1", "b", "a1", "a", false)});
  expectProblem(a, interface("a0", "a"), node("b"), interface("b1", "b"),
                "NULL Interface in path, can't continue \n", kNullInterface);
}

TEST_P(PathElementsTest, BackwardsTheNearNodeHasNoIdentifier) {
  const auto a = node("a", {record("b1", "b", "a1", ObjID(), false)});
  expectProblem(a, interface("a1", "a"), node("b"), interface("b1", "b"),
                "NULL Node in path, can't continue! \n", kNullNode);
}

TEST_P(PathElementsTest, BackwardsTheFarInterfaceIsMissing) {
  const auto a = node("a", {record("b1", "b", "a1", "a", false)});
  expectProblem(a, interface("a1", "a"), node("b"), madeInterface("b0", "b"),
                "NULL interface in path, can't continue! \n", kNullInterface);
}

TEST_P(PathElementsTest, BackwardsTheFarNodeIsMissing) {
  // The record's source is neither end.
  const auto a = node("a", {record("z1", "z", "a1", "b")});
  interface("z1", "z");
  expectProblem(a, interface("a1", "a"), node("b"), interface("b1", "b"),
                "NULL node in path, can't continue! \n", kNullNode);
}

// ---- interfaces into links --------------------------------------------------------------------

TEST_P(PathElementsTest, NeighbouringInterfacesOfTwoNodesAreALink) {
  EXPECT_THAT(converted({madeInterface("a1", "a"), madeInterface("b1", "b"),
                         madeInterface("b2", "b"), madeInterface("c1", "c")}),
              ElementsAre("a/a1-b1/b", "b/b2-c1/c"));
  EXPECT_TRUE(status.isOK());
}

TEST_P(PathElementsTest, ANodeWithOneInterfaceInThePathIsTheEndOfOneLinkAndTheStartOfTheNext) {
  EXPECT_THAT(converted({madeInterface("a0", "a"), madeInterface("a1", "a"),
                         madeInterface("b1", "b"), madeInterface("c1", "c")}),
              ElementsAre("a/a1-b1/b", "b/b1-c1/c"));
}

TEST_P(PathElementsTest, APathOnOneNodeIsALinkOfItsFirstInterfaceToItself) {
  EXPECT_THAT(converted({madeInterface("a1", "a")}), ElementsAre("a/a1-a1/a"));
  EXPECT_THAT(converted({madeInterface("a1", "a"), madeInterface("a2", "a")}),
              ElementsAre("a/a1-a1/a"));
  EXPECT_THAT(
      converted({madeInterface("a1", "a"), madeInterface("b1", "b"), madeInterface("a2", "a")}),
      ElementsAre("a/a1-a1/a"));
}

TEST_P(PathElementsTest, AnEmptyPathHasNoLinks) {
  EXPECT_THAT(converted({}), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_PATH_PROCESSING_ERROR);
  EXPECT_EQ(status.getAuxMsg(), "");
}

TEST_P(PathElementsTest, ANullHandleInAPathIsAnError) {
  EXPECT_THAT(converted({madeInterface("a1", "a"), {}, madeInterface("b1", "b")}), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_PATH_PROCESSING_ERROR);
}

ZNTOPO_ON_ENGINES(PathElementsTest, kSqlite);

}  // namespace
}  // namespace zntopo::test
