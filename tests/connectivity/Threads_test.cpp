#include <thread>

#include "tests/connectivity/Network.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

class ConnectivityThreadsTest : public ConnectivityTest {};

TEST_P(ConnectivityThreadsTest, OneApiAnswersSeveralThreadsAsItAnswersOne) {
  net->chain({"a", "b", "c", "d"});
  net->link("d", "a");
  net->address("a", "10.0.0.1");
  net->address("c", "10.0.0.2");
  const auto work = [this] {
    ZNTopoAPIStatus mine;
    std::set<ObjID> none;
    for (int i = 0; i < 8; ++i) {
      const auto path =
          api.getL2PathBetweenNodes(nameOf("a"), nameOf("b"), 5, mine, ZNAddress::IPv4, false);
      EXPECT_TRUE(mine.isOK());
      EXPECT_EQ(path->back()->getParentObjID(), ObjID("b"));
      EXPECT_EQ(api.getL2Path("10.0.0.1", "10.0.0.2", 5, mine, ZNAddress::IPv4, false)->size(), 6u);
      EXPECT_TRUE(mine.isOK());
      EXPECT_EQ(api.getNodeNeighbors(nameOf("a"), mine, 2, 100)->size(), 4u);
      EXPECT_TRUE(mine.isOK());
      EXPECT_EQ(api.getInterfacesByNodeObjIDList({"a"}, mine)->size(), 3u);
      EXPECT_FALSE(api.getInterfaceByObjID("a:b", mine).isNull());
      EXPECT_FALSE(api.getAddressByIP("10.0.0.1", mine, -1).isNull());
      EXPECT_FALSE(api.getAddressByObjID("10.0.0.2", mine).isNull());
    }
  };
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) threads.emplace_back(work);
  for (std::thread& thread : threads) thread.join();
}

ZNTOPO_ON_ENGINES(ConnectivityThreadsTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
