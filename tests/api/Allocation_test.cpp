// An object that the cache holds must cost its caller no allocation.

#include <gtest/gtest.h>

#include "tests/support/Allocations.h"
#include "tests/support/TestStore.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/api/ZNTopoAPI_Impl.h"

namespace zntopo::test {
namespace {

const ObjID kID = "10000000-0000-4000-8000-000000000001";

class ApiAllocationTest : public testing::Test {
 protected:
  ApiAllocationTest() : store_(Engine::Sqlite) { store_.setReady(); }

  /// What the second of two look-ups allocates.
  template <typename LookUp>
  static unsigned long costOf(const LookUp& lookUp) {
    ZNTopoAPIStatus status;
    lookUp(status);  // reads the state of the store, and makes what is made on first use
    const unsigned long before = allocations();
    const auto found = lookUp(status);
    const unsigned long after = allocations();
    EXPECT_FALSE(found.isNull());
    EXPECT_TRUE(status.isOK());
    return after - before;
  }

  ZNTopoAPI api_;

 private:
  TestStore store_;
};

ZNEntity entity() {
  return ZNEntity(kID, "", ObjID(7), "", "", E_Node, ObjectStatus(), ObjectStatus(), ObjectStatus(),
                  ObjectStatus(), 0, 0, 0, 0, ZNEntity::IPv4, ActiveDB);
}

TEST_F(ApiAllocationTest, ANodeOfTheCacheCostsNone) {
  ZNTopoAPIStatus status;
  api_.getNodeByObjID(kID, status);  // a first query empties the cache
  ZNTopoAPI_Impl::cache()->useNode(new ZNNode(entity()));
  EXPECT_EQ(costOf([&](ZNTopoAPIStatus& s) { return api_.getNodeByObjID(kID, s); }), 0U);
  EXPECT_EQ(costOf([&](ZNTopoAPIStatus& s) { return api_.getNodeByQRMObjID(ObjID(7), s); }), 0U);
}

TEST_F(ApiAllocationTest, AnInterfaceOfTheCacheCostsNone) {
  ZNTopoAPIStatus status;
  api_.getInterfaceByObjID(kID, status);
  ZNTopoAPI_Impl::cache()->useInterface(new ZNInterface(entity()));
  EXPECT_EQ(costOf([&](ZNTopoAPIStatus& s) { return api_.getInterfaceByObjID(kID, s); }), 0U);
}

}  // namespace
}  // namespace zntopo::test
