#include <atomic>
#include <thread>

#include "tests/support/ApiFixture.h"

namespace zntopo::test {
namespace {

class ThreadsTest : public ApiTest {};
ZNTOPO_ON_ENGINES(ThreadsTest, kMainEngines);

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

TEST_P(ThreadsTest, ARequestForAllGroupsIsCompleteWhateverOthersDoToTheCache) {
  constexpr int kGroups = 8;
  constexpr int kThreads = 4;
  for (int i = 1; i <= kGroups; ++i) {
    store->addEntity(uuid(i, 'a'), "vlan", 4);
    store->addEntity(uuid(i, 'b'), "group", 11);
    store->insert("nwifc", {{"ObjId", uuid(i, 'c')}, {"EntityName", "ifc"}, {"IFCType", 5}});
  }
  ZNTopoCache& cache = *ZNTopoAPI_Impl::cache();
  std::atomic<int> failures{0};
  std::atomic<int> busy{kThreads};
  const auto check = [&](const ZNTopoAPIStatus& mine, std::size_t size) {
    if (!mine.isOK() || size != kGroups) ++failures;
  };
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&] {
      ZNTopoAPI api;
      ZNTopoAPIStatus mine;
      std::set<ObjID> missing;
      for (int round = 0; round < 40; ++round) {
        const auto vlans = api.getVlansByObjIDList({}, missing, mine, true, -1);
        check(mine, vlans->size());
        const auto groups = api.getHSRPsByObjIDList({}, missing, mine, true, -1);
        check(mine, groups->size());
        if (round % 4 != 0) continue;
        const auto containers = api.getIfcsByObjIDList({}, missing, mine, true, -1);
        check(mine, containers->size());
        const auto ofType = api.getIfcsByType(5, mine, -1);
        check(mine, ofType->size());
      }
      --busy;
    });
  }
  for (int round = 1; busy > 0; ++round) {
    cache.removeHSRP(ObjID(uuid(round % kGroups + 1, 'b')));
    cache.removeIfc(ObjID(uuid(round % kGroups + 1, 'c')));
    cache.getTopoConfig().setVlanCacheSize(round % 3 * kGroups);
    cache.getTopoConfig().setHSRPCacheSize(round % 5 * 2);
    if (round % 2 == 0) {
      cache.clear(true);
      ZNTopoAPIStatus mine;
      impl.validate(mine);
    }
    std::this_thread::yield();
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(failures, 0);
  // Containers outlive the cache's clear().
  for (int i = 1; i <= kGroups; ++i) cache.removeIfc(ObjID(uuid(i, 'c')));
}

}  // namespace
}  // namespace zntopo::test
