#include "tests/connectivity/Network.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;

class PairsOfInterfacesTest : public ConnectivityTest {};

TEST_P(PairsOfInterfacesTest, APathStartsAtTheFirstInterfaceEvenIfAnotherMakesItShorter) {
  net->chain({"a", "b"});
  net->node("x");
  net->interface("a:0", "a");
  store->addLink("a:0", "x:0", "a", "x");
  // The store gives its rows in any order, the cache in that of the identifiers.
  ASSERT_EQ(api.getInterfacesByObjIDList({"a:0", "a:b"}, notFound, status, false, false)->size(),
            2u);
  const auto path =
      api.getL2PathBetweenNodes(nameOf("a"), nameOf("b"), 5, status, ZNAddress::IPv4, false);
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(idsOf(*path), ElementsAre("a:0", "a:b", "b:a"));
}

ZNTOPO_ON_ENGINES(PairsOfInterfacesTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
