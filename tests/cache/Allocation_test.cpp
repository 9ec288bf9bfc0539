// A lookup must cost nothing but the search and the handle.

#include <gtest/gtest.h>

#include "tests/cache/CachedKinds.h"
#include "tests/support/Allocations.h"

namespace zntopo::test {
namespace {

template <typename K>
class AllocationTest : public testing::Test {};

TYPED_TEST_SUITE(AllocationTest, AllKinds, KindNames);

TYPED_TEST(AllocationTest, ALookupThatHitsAllocatesNothing) {
  ZNTopoCache cache;
  const ObjID ids[] = {"10000000-0000-0000-0000-000000000001",
                       "10000000-0000-0000-0000-000000000002"};
  for (const ObjID& id : ids) TypeParam::use(cache, TypeParam::make(id));
  typename TypeParam::Handle found;
  TypeParam::find(cache, ids[0], found);  // whatever is made on first use
  const unsigned long before = allocations();
  const bool isFound = TypeParam::find(cache, ids[1], found);
  const unsigned long after = allocations();
  EXPECT_TRUE(isFound);
  EXPECT_EQ(before, after);
}

TEST(LegacyAllocationTest, ALookupByLegacyIdentifierAllocatesNothing) {
  ZNTopoCache cache;
  cache.useNode(makeEntity<ZNNode>("n", 7));
  ZNRefPtr<ZNNode> found;
  cache.inNodeQRMIDCache(7, found);
  const unsigned long before = allocations();
  const bool isFound = cache.inNodeQRMIDCache(7, found);
  const unsigned long after = allocations();
  EXPECT_TRUE(isFound);
  EXPECT_EQ(before, after);
}

}  // namespace
}  // namespace zntopo::test
