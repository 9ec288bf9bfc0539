#include <atomic>
#include <thread>

#include "tests/api/ApiFixture.h"

namespace zntopo::test {
namespace {

class ThreadsTest : public ApiTest {};
INSTANTIATE_TEST_SUITE_P(Engines, ThreadsTest, testing::ValuesIn(kMainEngines), EngineNames());

TEST_P(ThreadsTest, SeveralThreadsQueryOneObject) {
  constexpr int kNodes = 60;
  constexpr int kThreads = 6;
  for (int i = 1; i <= kNodes; ++i) {
    store->addNode(uuid(i), "node-" + std::to_string(i) + ".net", {{"hasDynamicProperty", 1}});
    store->addLink(uuid(i, 'c'), uuid(i + 1, 'c'), uuid(i), uuid(i % kNodes + 1));
  }
  ZNTopoAPI::getTopoConfiguration().setNodeCacheSize(20);  // so that nodes come and go
  ZNTopoAPI api;
  std::atomic<int> failures{0};
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (int round = 0; round < 8; ++round) {
        const int number = (t * 7 + round * 5) % kNodes + 1;
        const std::string name = "node-" + std::to_string(number) + ".net";
        ZNTopoAPIStatus mine;
        const auto byName = api.getNodeByName(name, mine, -1);
        if (!mine.isOK() || byName.isNull() || byName->getName() != name) ++failures;
        const auto byID = api.getNodeByObjID(ObjID(uuid(number)), mine);
        if (byID.isNull() || byID->getConnDataList().size() != 2) ++failures;
        std::set<ObjID> missing;
        const auto all = api.getNodesByObjIDList({}, missing, mine, false, false, true,
                                                 ZNEntity::AllProtocol, -1);
        if (!mine.isOK() || all->size() != static_cast<std::size_t>(kNodes)) ++failures;
        if (t == 0 && round == 4) api.clearCache();
        if (t == 1) ZNTopoAPI::getTopoConfiguration().setNodeCacheSize(10 + round);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(failures, 0);
}

}  // namespace
}  // namespace zntopo::test
