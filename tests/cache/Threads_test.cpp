// Several threads on one cache. Most of what these tests show, they show under a sanitizer.

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <functional>
#include <iterator>
#include <latch>
#include <thread>
#include <vector>

#include "tests/cache/CachedKinds.h"
#include "tests/support/TestStore.h"

namespace zntopo::test {
namespace {

constexpr int kRounds = 300;
constexpr int kIDs = 40;

void runAll(const std::vector<std::function<void(int)>>& tasks, int rounds = kRounds) {
  std::latch start(static_cast<std::ptrdiff_t>(tasks.size()));
  std::vector<std::thread> threads;
  for (const auto& task : tasks) {
    threads.emplace_back([&] {
      start.arrive_and_wait();
      for (int round = 0; round < rounds; ++round) task(round);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

template <typename K>
void useAndFind(ZNTopoCache& cache, int round, std::atomic<int>& wrong) {
  const ObjID id = round * 7 % kIDs;
  K::use(cache, K::make(id));
  typename K::Handle found;
  const ObjID other = round * 11 % kIDs;
  if (K::find(cache, other, found) && K::idOf(found) != other) ++wrong;
}

void useEveryKind(ZNTopoCache& cache, int round, std::atomic<int>& wrong) {
  useAndFind<Nodes>(cache, round, wrong);
  useAndFind<Interfaces>(cache, round, wrong);
  useAndFind<Addresses>(cache, round, wrong);
  useAndFind<Subnets>(cache, round, wrong);
  useAndFind<Vlans>(cache, round, wrong);
  useAndFind<Ifcs>(cache, round, wrong);
  useAndFind<HSRPs>(cache, round, wrong);
}

void readWholeKinds(ZNTopoCachePeer& peer, ZNTopoCache& cache) {
  peer.setAllVlanLoaded();
  peer.setAllIfcLoaded();
  peer.setAllHSRPLoaded();
  cache.isAllVlanInCache();
  cache.isAllIfcInCache();
  cache.isAllHSRPInCache();
  peer.getAllVlans();
  peer.getAllIfcs();
  peer.getAllHSRPs();
  peer.getNodeIDMap();
  peer.getInterfaceIDMap();
  peer.getAddressQRMIDMap();
  cache.isAddressIDMapValid();
  cache.getTimeStamp();
  cache.isModelReady();
}

TEST(CacheThreadsTest, UsesLookupsRemovalsAndNewSizesMeet) {
  ZNTopoCache cache;
  ZNTopoCachePeer peer(cache);
  std::atomic<int> wrong{0};
  const auto uses = [&](int round) { useEveryKind(cache, round, wrong); };
  runAll({uses, uses, [&](int round) { removeEverywhere(cache, round % kIDs); },
          [&](int round) {
            if (round % 10 == 0) cache.clear(true);
            readWholeKinds(peer, cache);
          },
          [&](int round) {
            const int size = 1 + round % kIDs;
            cache.setSize(size, size, size, size, size, size, size);
            ZNTopoConfig config;
            config.setNodeCacheSize(size);
            config.setEnableFIFOCacheSwap(round % 3 != 0);
            cache.setTopoConfig(config);
            cache.getTopoConfig().setIfcCacheSize(size);
          }});
  EXPECT_EQ(0, wrong);

  // What is found by legacy identifier is what is found by identifier.
  const auto nodes = peer.getNodeIDMap();
  for (const auto& [key, node] : peer.getNodeQRMIDMap()) {
    const auto entry = findObjID(nodes, node->getObjID());
    ASSERT_TRUE(entry != nodes.end()) << key;
    EXPECT_TRUE(entry->second == node) << key;
  }
  EXPECT_TRUE(cache.isAddressIDMapValid());
}

// Large maps, so that a walk through one takes long enough to meet a change.
TEST(CacheThreadsTest, WholeKindsAreReadWhileTheyChange) {
  constexpr int kMany = 400;
  ZNTopoCache cache;
  ZNTopoCachePeer peer(cache);
  std::atomic<int> wrong{0};
  std::atomic<int> whole{0};
  const auto isInOrder = [&](const auto& objects) {
    if (!objects) return;  // something has left in between
    ++whole;
    for (auto it = objects->begin(); it != objects->end(); ++it) {
      const auto next = std::next(it);
      if (next != objects->end() && !((*it)->getObjID() < (*next)->getObjID())) ++wrong;
    }
  };
  runAll({[&](int) {
            peer.setAllVlanLoaded();
            isInOrder(peer.getAllVlans());
          },
          [&](int) {
            peer.setAllIfcLoaded();
            isInOrder(peer.getAllIfcs());
          },
          [&](int) {
            peer.setAllHSRPLoaded();
            isInOrder(peer.getAllHSRPs());
          },
          [&](int round) {
            // An eviction counts until the cache is cleared.
            if (round % kMany == kMany - 1) cache.clear(true);
            const ObjID id = round * 7 % kMany;
            cache.useVlan(Vlans::make(id));
            cache.useIfc(Ifcs::make(id));
            cache.useHSRP(HSRPs::make(id));
            cache.getTopoConfig().setVlanCacheSize(kMany - round % 100);
            cache.removeIfc(round * 5 % kMany);
            cache.removeHSRP(round * 5 % kMany);
          }},
         3 * kMany);
  EXPECT_EQ(0, wrong);
  EXPECT_LT(0, whole);
}

TEST(CacheThreadsTest, TheSizeHoldsUnderManyUses) {
  ZNTopoCache cache;
  cache.getTopoConfig().setEnableFIFOCacheSwap(true);
  cache.getTopoConfig().setNodeCacheSize(5);
  std::atomic<int> wrong{0};
  const auto uses = [&](int round) { useAndFind<Nodes>(cache, round, wrong); };
  runAll({uses, uses, uses, uses});
  EXPECT_EQ(0, wrong);
  EXPECT_EQ(5u, ZNTopoCachePeer(cache).getNodeIDMap().size());
}

long ticks() {
  static std::atomic<long> now{1000000};
  return now += 10;
}

TEST(CacheThreadsTest, ValidationMeetsUsesAndClears) {
  TestStore store(Engine::Sqlite);
  store.setReady(500);
  ZNTopoCache cache;
  ZNTopoCachePeer peer(cache);
  peer.setClock(ticks);
  std::atomic<int> wrong{0};
  const auto validates = [&](int) {
    ZNTopoAPIStatus status;
    const auto result = cache.validate(status);
    if (result == ZNTopoCache::ZN_DB_NOT_READY) ++wrong;
  };
  runAll({validates, validates, [&](int round) { useEveryKind(cache, round, wrong); },
          [&](int round) {
            if (round % 20 == 0) cache.clear(true);
            ZNTopoAPIStatus status;
            if (cache.getTopologyState(status).getTopoState() != ZNTopologyState::READY) ++wrong;
            cache.getTimeStamp();
            cache.isModelReady();
          }});
  EXPECT_EQ(0, wrong);
  ZNTopoAPIStatus status;
  cache.validate(status);
  EXPECT_TRUE(cache.isModelReady());
  EXPECT_EQ(500, cache.getTimeStamp());
}

}  // namespace
}  // namespace zntopo::test
