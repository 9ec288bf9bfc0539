// A look-up that counts as a use does what a look-up and a use do one after the other.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/cache/CachedKinds.h"
#include "tests/support/CapturedLog.h"

namespace zntopo::test {
namespace {

constexpr char kFoundLine[] = "FOUND %s IN CACHE! \n";

struct HeldNodes : Nodes {
  static constexpr auto kUseHeld = &ZNTopoCache::useHeldNode;
};
struct HeldInterfaces : Interfaces {
  static constexpr auto kUseHeld = &ZNTopoCache::useHeldInterface;
};

/// Fills a cache, looks identifiers up, and tells all that can be seen of it.
template <typename K, typename UseCached>
std::vector<std::string> story(const ZNTopoConfig& config, int loweredSize,
                               const UseCached& useCached) {
  const CapturedLog log;
  ZNTopoCache cache;
  cache.setTopoConfig(config);
  for (const int id : {4, 1, 3, 2}) K::use(cache, K::make(id));
  K::setSize(cache, loweredSize);
  for (const int id : {3, 9, 1, 4, 2, 3}) {
    typename K::Handle found;
    const bool isHit = useCached(cache, id, found);
    MCLog::log(MC_INFO, "%d: %s\n", id, isHit ? K::idOf(found).getStrValue().c_str() : "not there");
  }
  for (const int id : {5, 6}) K::use(cache, K::make(id));
  for (int id = 1; id <= 6; ++id) {
    MCLog::log(MC_INFO, "%d is %s\n", id, holds<K>(cache, id) ? "held" : "gone");
  }
  return log.lines();
}

template <typename K>
class UseHeldTest : public testing::Test {};

using HeldKinds = testing::Types<HeldNodes, HeldInterfaces>;
TYPED_TEST_SUITE(UseHeldTest, HeldKinds);

TYPED_TEST(UseHeldTest, TellsAndDoesWhatALookupAndAUseDo) {
  using K = TypeParam;
  for (const bool byAge : {false, true}) {
    for (const int loweredSize : {10, 4, 3, 2, 0}) {
      SCOPED_TRACE(testing::Message() << "by age " << byAge << ", size " << loweredSize);
      ZNTopoConfig config;
      config.setEnableFIFOCacheSwap(byAge);
      const auto inOne = story<K>(config, loweredSize, [](auto& cache, int id, auto& found) {
        return (cache.*K::kUseHeld)(id, found, kFoundLine);
      });
      const auto inTwo = story<K>(config, loweredSize, [](auto& cache, int id, auto& found) {
        if (!K::find(cache, id, found)) return false;
        MCLog::log(MC_INFO, "FOUND %d IN CACHE! \n", id);
        K::use(cache, found);
        return true;
      });
      EXPECT_EQ(inOne, inTwo);
      EXPECT_THAT(inOne, testing::Contains("FOUND 3 IN CACHE! \n"));
    }
  }
}

TYPED_TEST(UseHeldTest, AMissLeavesTheHandleOfTheCallerAlone) {
  ZNTopoCache cache;
  const auto mine = TypeParam::make(8);
  auto found = mine;
  EXPECT_FALSE((cache.*TypeParam::kUseHeld)(8, found, kFoundLine));
  EXPECT_TRUE(found == mine);
}

}  // namespace
}  // namespace zntopo::test
