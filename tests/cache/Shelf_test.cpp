// What holds for the objects of every cached kind.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/cache/CachedKinds.h"
#include "tests/support/CapturedLog.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;

template <typename K>
class ShelfTest : public testing::Test {
 protected:
  using Handle = typename K::Handle;

  Handle use(const ObjID& id) {
    const Handle object = K::make(id);
    K::use(cache, object);
    return object;
  }
  bool holds(const ObjID& id) { return test::holds<K>(cache, id); }
  ZNTopoConfig& config() { return cache.getTopoConfig(); }

  ZNTopoCache cache;
};

TYPED_TEST_SUITE(ShelfTest, AllKinds, KindNames);

TYPED_TEST(ShelfTest, AnObjectThatWasUsedIsFound) {
  const auto object = this->use(7);
  typename TypeParam::Handle found;
  EXPECT_TRUE(TypeParam::find(this->cache, 7, found));
  EXPECT_TRUE(found == object);
}

TYPED_TEST(ShelfTest, AMissLeavesTheHandleOfTheCallerAlone) {
  this->use(7);
  const auto mine = TypeParam::make(8);
  auto found = mine;
  EXPECT_FALSE(TypeParam::find(this->cache, 8, found));
  EXPECT_TRUE(found == mine);
}

TYPED_TEST(ShelfTest, ASizeOfZeroCachesNothing) {
  for (const int size : {0, -1}) {
    TypeParam::setSize(this->cache, size);
    this->use(7);
    EXPECT_FALSE(this->holds(7));
  }
}

TYPED_TEST(ShelfTest, ASizeOfZeroReturnsBeforeTheLock) {
  TypeParam::setSize(this->cache, 0);
  MutexLockInternal lock(ZNTopoCachePeer(this->cache).mutex());
  this->use(7);  // would not come back
}

TYPED_TEST(ShelfTest, WithoutAgeTheLowestIdentifierGoesEvenIfItIsTheNewest) {
  TypeParam::setSize(this->cache, 1);
  this->use(9);
  this->use(3);
  EXPECT_TRUE(this->holds(9));
  EXPECT_FALSE(this->holds(3));
  this->use(12);
  EXPECT_FALSE(this->holds(9));
  EXPECT_TRUE(this->holds(12));
}

TYPED_TEST(ShelfTest, WithAgeTheOlderObjectGoes) {
  this->config().setEnableFIFOCacheSwap(true);
  TypeParam::setSize(this->cache, 1);
  this->use(9);
  this->use(3);
  EXPECT_FALSE(this->holds(9));
  EXPECT_TRUE(this->holds(3));
}

TYPED_TEST(ShelfTest, TheSizeIsReachedAndNotPassed) {
  for (const bool byAge : {false, true}) {
    ZNTopoCache bounded;
    bounded.getTopoConfig().setEnableFIFOCacheSwap(byAge);
    TypeParam::setSize(bounded, 3);
    for (int used = 1; used <= 6; ++used) {
      TypeParam::use(bounded, TypeParam::make(used));
      int held = 0;
      for (int id = 1; id <= 6; ++id) held += test::holds<TypeParam>(bounded, id);
      EXPECT_EQ(std::min(used, 3), held);
    }
  }
}

TYPED_TEST(ShelfTest, WithoutSwappingTheSizeIsPassedFreely) {
  TypeParam::setSize(this->cache, 2);
  this->config().setEnableCacheSwap(false);
  for (const bool byAge : {false, true}) {
    this->config().setEnableFIFOCacheSwap(byAge);
    for (int id = 0; id < 10; ++id) this->use(10 * byAge + id);
  }
  for (int id = 0; id < 20; ++id) EXPECT_TRUE(this->holds(id)) << id;
}

TYPED_TEST(ShelfTest, ASecondUseMovesTheIdentifierToTheBackAndKeepsTheFirstObject) {
  this->config().setEnableFIFOCacheSwap(true);
  TypeParam::setSize(this->cache, 2);
  const auto first = this->use(1);
  this->use(2);
  this->use(1);
  this->use(3);
  EXPECT_FALSE(this->holds(2));
  typename TypeParam::Handle found;
  ASSERT_TRUE(TypeParam::find(this->cache, 1, found));
  EXPECT_TRUE(found == first);
}

TYPED_TEST(ShelfTest, ALookupIsNoUse) {
  this->config().setEnableFIFOCacheSwap(true);
  TypeParam::setSize(this->cache, 2);
  this->use(1);
  this->use(2);
  EXPECT_TRUE(this->holds(1));
  this->use(3);
  EXPECT_FALSE(this->holds(1));
}

TYPED_TEST(ShelfTest, AnObjectNeverReplacesAnother) {
  const auto first = this->use(7);
  this->use(7);
  typename TypeParam::Handle found;
  ASSERT_TRUE(TypeParam::find(this->cache, 7, found));
  EXPECT_TRUE(found == first);
}

TYPED_TEST(ShelfTest, AnObjectThatLeftLivesOnWithItsHandles) {
  TypeParam::setSize(this->cache, 1);
  const auto kept = this->use(3);
  this->use(9);
  EXPECT_FALSE(this->holds(3));
  EXPECT_EQ(ObjID(3), TypeParam::idOf(kept));
}

TYPED_TEST(ShelfTest, ASizeThatWasLoweredInTheConfigurationIsReachedAUseEach) {
  for (int id = 0; id < 5; ++id) this->use(id);
  TypeParam::setSize(this->cache, 2);
  EXPECT_TRUE(this->holds(0));
  this->use(4);
  EXPECT_FALSE(this->holds(0));
  EXPECT_TRUE(this->holds(1));
  this->use(4);
  EXPECT_FALSE(this->holds(1));
  EXPECT_TRUE(this->holds(2));
  this->use(4);
  this->use(4);
  EXPECT_TRUE(this->holds(3));
  EXPECT_TRUE(this->holds(4));
}

TYPED_TEST(ShelfTest, AnIdentifierOfAnotherKindIsNotFoundNotStoredAndMovesNothing) {
  this->config().setEnableFIFOCacheSwap(true);
  TypeParam::setSize(this->cache, 2);
  const auto first = this->use(1);
  this->use(2);
  this->use("text");
  this->use("00000000-0000-0000-0000-000000000001");
  EXPECT_FALSE(this->holds("text"));
  EXPECT_FALSE(this->holds("00000000-0000-0000-0000-000000000001"));
  typename TypeParam::Handle found;
  ASSERT_TRUE(TypeParam::find(this->cache, 1, found));
  EXPECT_TRUE(found == first);
  this->use(3);  // the oldest goes, and no refused identifier in its place
  EXPECT_FALSE(this->holds(1));
  EXPECT_TRUE(this->holds(2));
  EXPECT_TRUE(this->holds(3));
}

TYPED_TEST(ShelfTest, IdentifiersOfAnyOneKindAreKept) {
  const std::vector<ObjID> uuids = {"10000000-0000-0000-0000-000000000000",
                                    "20000000-0000-0000-0000-000000000000",
                                    "30000000-0000-0000-0000-000000000000"};
  const std::vector<ObjID> texts = {"name1", "name2", "name3"};
  for (const auto& ids : {uuids, texts}) {
    ZNTopoCache bounded;
    bounded.getTopoConfig().setEnableFIFOCacheSwap(true);
    TypeParam::setSize(bounded, 2);
    for (const ObjID& id : ids) TypeParam::use(bounded, TypeParam::make(id));
    EXPECT_FALSE(test::holds<TypeParam>(bounded, ids[0]));
    EXPECT_TRUE(test::holds<TypeParam>(bounded, ids[1]));
    EXPECT_TRUE(test::holds<TypeParam>(bounded, ids[2]));
  }
}

TYPED_TEST(ShelfTest, ANullIdentifierIsNeverStored) {
  for (const bool byAge : {false, true}) {
    this->config().setEnableFIFOCacheSwap(byAge);
    this->use(ObjID());
    EXPECT_FALSE(this->holds(ObjID()));
  }
  const auto first = this->use(1);
  this->use(ObjID());
  EXPECT_FALSE(this->holds(ObjID()));
  typename TypeParam::Handle found;
  ASSERT_TRUE(TypeParam::find(this->cache, 1, found));
  EXPECT_TRUE(found == first);
}

TYPED_TEST(ShelfTest, ANullIdentifierOnAnEmptyShelfLeavesRoomForEveryKindOfIdentifier) {
  this->use(ObjID());
  this->use("text");
  EXPECT_TRUE(this->holds("text"));
}

TYPED_TEST(ShelfTest, TheAgesOfBeforeTheSwitchAreNotKnown) {
  TypeParam::setSize(this->cache, 2);
  this->use(1);
  this->use(2);
  this->config().setEnableFIFOCacheSwap(true);
  this->use(3);  // the order is empty: nothing can go
  EXPECT_TRUE(this->holds(1));
  EXPECT_TRUE(this->holds(2));
  EXPECT_TRUE(this->holds(3));
  this->use(4);  // the one identifier with an age goes
  EXPECT_TRUE(this->holds(1));
  EXPECT_TRUE(this->holds(2));
  EXPECT_FALSE(this->holds(3));
  EXPECT_TRUE(this->holds(4));
}

TYPED_TEST(ShelfTest, AnAgeThatOutlivedItsObjectCostsOneEviction) {
  this->config().setEnableFIFOCacheSwap(true);
  TypeParam::setSize(this->cache, 2);
  this->use(1);
  this->use(2);
  this->config().setEnableFIFOCacheSwap(false);
  this->use(9);  // 1 goes as the lowest identifier; its age stays
  ASSERT_FALSE(this->holds(1));
  this->config().setEnableFIFOCacheSwap(true);
  this->use(10);  // the age of 1 is used up
  EXPECT_TRUE(this->holds(2));
  EXPECT_TRUE(this->holds(9));
  EXPECT_TRUE(this->holds(10));
  this->use(11);
  EXPECT_FALSE(this->holds(2));
}

TYPED_TEST(ShelfTest, ANullHandleIsLoggedAndDropped) {
  const CapturedLog log;
  TypeParam::use(this->cache, typename TypeParam::Handle());
  const std::string name = TypeParam::kName;
  EXPECT_THAT(log.lines(),
              ElementsAre("Entering ZNTopoCache::use" + name + " \n", TypeParam::kNullLine));
}

TYPED_TEST(ShelfTest, ANullIdentifierIsLoggedByTheKindsThatTestIt) {
  const auto object = TypeParam::make(ObjID());
  const std::string name = TypeParam::kName;
  const CapturedLog log;
  TypeParam::use(this->cache, object);
  const std::string entering = "Entering ZNTopoCache::use" + name + " \n";
  if (TypeParam::kTestsNullID) {
    EXPECT_THAT(log.lines(), ElementsAre(entering, "Null ObjID! \n"));
  } else {
    EXPECT_THAT(log.lines(), ElementsAre(entering, "Use" + name + " with objID = NULL \n",
                                         "Exiting ZNTopoCache::use" + name + " \n"));
  }
}

TYPED_TEST(ShelfTest, ASizeOfZeroIsLogged) {
  const auto object = TypeParam::make(7);
  const std::string name = TypeParam::kName;
  TypeParam::setSize(this->cache, 0);
  const CapturedLog log;
  TypeParam::use(this->cache, object);
  EXPECT_THAT(log.lines(), ElementsAre("Entering ZNTopoCache::use" + name + " \n",
                                       "Use" + name + " with objID = 7 \n",
                                       "Exiting ZNTopoCache::use" + name + " - Cache size = 0\n"));
}

TYPED_TEST(ShelfTest, AnEvictionIsLogged) {
  TypeParam::setSize(this->cache, 1);
  this->use(3);
  const auto object = TypeParam::make(9);
  const std::string name = TypeParam::kName;
  const CapturedLog log;
  TypeParam::use(this->cache, object);
  EXPECT_THAT(log.lines(), ElementsAre("Entering ZNTopoCache::use" + name + " \n",
                                       "Use" + name + " with objID = 9 \n",
                                       "Reducing " + name + " Cache - Current = 2 : Max = 1 \n",
                                       TypeParam::kRemoving + std::string("3 from cache! \n"),
                                       "Exiting ZNTopoCache::use" + name + " \n"));
}

TYPED_TEST(ShelfTest, EvictionsAreHeardAtTheLevelOfInformation) {
  TypeParam::setSize(this->cache, 1);
  this->use(3);
  const auto object = TypeParam::make(9);
  const std::string name = TypeParam::kName;
  const CapturedLog log(MC_INFO);
  TypeParam::use(this->cache, object);
  EXPECT_THAT(log.lines(), ElementsAre("Reducing " + name + " Cache - Current = 2 : Max = 1 \n",
                                       TypeParam::kRemoving + std::string("3 from cache! \n")));
}

}  // namespace
}  // namespace zntopo::test
