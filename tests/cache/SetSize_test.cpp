#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "tests/cache/CachedKinds.h"

namespace zntopo::test {
namespace {

/// Sizes in the order of setSize().
using Sizes = std::array<int, 7>;

Sizes sizesOf(const ZNTopoConfig& config) {
  return {config.getNodeCacheSize(),      config.getAddressCacheSize(), config.getSubnetCacheSize(),
          config.getInterfaceCacheSize(), config.getVlanCacheSize(),    config.getHSRPCacheSize(),
          config.getIfcCacheSize()};
}

class SetSizeTest : public testing::Test {
 protected:
  void setSize(const Sizes& s) { cache.setSize(s[0], s[1], s[2], s[3], s[4], s[5], s[6]); }
  void fill(int count) {
    for (int id = count; id > 0; --id) {
      useWithLegacyID(cache, id, 10 + id);
      cache.useVlan(Vlans::make(id));
      cache.useHSRP(HSRPs::make(id));
      cache.useIfc(Ifcs::make(id));
    }
  }
  template <typename K>
  std::vector<int> held() {
    std::vector<int> ids;
    for (int id = 1; id <= 9; ++id) {
      if (holds<K>(cache, id)) ids.push_back(id);
    }
    return ids;
  }

  using Ids = std::vector<int>;

  ZNTopoCache cache;
  ZNTopoCachePeer peer{cache};
};

TEST_F(SetSizeTest, SixSizesAreStoredAndTheSeventhIsIgnored) {
  setSize({1, 2, 3, 4, 5, 6, 7});
  EXPECT_EQ((Sizes{1, 2, 3, 4, 5, 6, 500}), sizesOf(cache.getTopoConfig()));
  setSize({0, 0, 0, 0, 0, 0, -1});
  EXPECT_EQ((Sizes{0, 0, 0, 0, 0, 0, 500}), sizesOf(cache.getTopoConfig()));
}

TEST_F(SetSizeTest, ANegativeSizeChangesNothingNotEvenTheSizesBeforeIt) {
  cache.getTopoConfig().setEnableFIFOCacheSwap(true);
  fill(3);
  const Sizes before = sizesOf(cache.getTopoConfig());
  for (int place = 0; place < 6; ++place) {
    Sizes sizes = {1, 1, 1, 1, 1, 1, 1};
    sizes[place] = -1;
    setSize(sizes);
    EXPECT_EQ(before, sizesOf(cache.getTopoConfig())) << place;
  }
  EXPECT_EQ((Ids{1, 2, 3}), held<Nodes>());
}

TEST_F(SetSizeTest, ByAgeFourKindsShrinkAtOnce) {
  cache.getTopoConfig().setEnableFIFOCacheSwap(true);
  fill(5);
  setSize({1, 2, 3, 9, 4, 1, 1});
  EXPECT_EQ((Ids{1}), held<Nodes>());
  EXPECT_EQ((Ids{1, 2}), held<Addresses>());
  EXPECT_EQ((Ids{1, 2, 3}), held<Subnets>());
  EXPECT_EQ((Ids{1, 2, 3, 4}), held<Vlans>());
  EXPECT_EQ((Ids{1, 2, 3, 4, 5}), held<HSRPs>());
  EXPECT_EQ((Ids{1, 2, 3, 4, 5}), held<Ifcs>());
  EXPECT_EQ(1u, peer.getNodeQRMIDMap().size());
  EXPECT_EQ(2u, peer.getAddressQRMIDMap().size());
  EXPECT_EQ(3u, peer.getSubnetQRMIDMap().size());
}

TEST_F(SetSizeTest, WithoutAgesTheExcessStaysUntilUsesTrimIt) {
  fill(5);
  setSize({1, 2, 3, 4, 4, 1, 1});
  EXPECT_EQ((Ids{1, 2, 3, 4, 5}), held<Nodes>());
  EXPECT_EQ((Ids{1, 2, 3, 4, 5}), held<Vlans>());
  cache.useNode(Nodes::make(9));
  EXPECT_EQ((Ids{2, 3, 4, 5, 9}), held<Nodes>());
}

TEST_F(SetSizeTest, WithoutSwappingNothingShrinks) {
  cache.getTopoConfig().setEnableFIFOCacheSwap(true);
  fill(5);
  cache.getTopoConfig().setEnableCacheSwap(false);
  setSize({1, 1, 1, 1, 1, 1, 1});
  EXPECT_EQ((Ids{1, 2, 3, 4, 5}), held<Nodes>());
  EXPECT_EQ((Ids{1, 2, 3, 4, 5}), held<Interfaces>());
}

TEST_F(SetSizeTest, AddressesShrinkWhateverTheirOwnSwitchSays) {
  cache.getTopoConfig().setEnableFIFOCacheSwap(true);
  fill(5);
  cache.getTopoConfig().setEnableAddressCacheSwap(false);
  setSize({9, 2, 9, 9, 9, 9, 9});
  EXPECT_EQ((Ids{1, 2}), held<Addresses>());
}

TEST_F(SetSizeTest, AVlanTakesTheVlanThatItsLegacyIdentifierNamesWithIt) {
  cache.getTopoConfig().setEnableFIFOCacheSwap(true);
  cache.useVlan(makeEntity<ZNVlan>(1, 3));
  for (const int id : {2, 3, 4}) cache.useVlan(makeEntity<ZNVlan>(id));
  setSize({9, 9, 9, 9, 3, 9, 9});
  EXPECT_EQ((Ids{2, 4}), held<Vlans>());
  setSize({9, 9, 9, 9, 0, 9, 9});
  EXPECT_EQ((Ids{}), held<Vlans>());
}

TEST_F(SetSizeTest, AVlanThatShrinkingTakesEndsTheWhole) {
  cache.getTopoConfig().setEnableFIFOCacheSwap(true);
  fill(2);
  peer.setAllVlanLoaded();
  setSize({9, 9, 9, 9, 2, 9, 9});
  EXPECT_TRUE(cache.isAllVlanInCache());
  setSize({9, 9, 9, 9, 1, 9, 9});
  EXPECT_FALSE(cache.isAllVlanInCache());
}

TEST_F(SetSizeTest, AgesThatOutlivedTheirObjectsAreUsedUp) {
  cache.getTopoConfig().setEnableFIFOCacheSwap(true);
  fill(3);
  cache.getTopoConfig().setEnableFIFOCacheSwap(false);
  cache.getTopoConfig().setNodeCacheSize(1);
  cache.useNode(Nodes::make(9));  // node 1 goes, its age stays
  ASSERT_EQ((Ids{2, 3, 9}), held<Nodes>());
  setSize({0, 0, 0, 9, 0, 0, 0});
  EXPECT_EQ((Ids{9}), held<Nodes>());  // 9 never had an age
}

TEST_F(SetSizeTest, OneInterfaceGoesAndASubnetLosesItsAge) {
  cache.getTopoConfig().setEnableFIFOCacheSwap(true);
  fill(4);
  setSize({9, 9, 9, 1, 9, 9, 9});
  EXPECT_EQ((Ids{1, 2, 3}), held<Interfaces>());
  EXPECT_EQ(4u, peer.interfaceAges());
  EXPECT_EQ(3u, peer.subnetAges());
  EXPECT_EQ((Ids{1, 2, 3, 4}), held<Subnets>());
  ZNRefPtr<ZNInterface> interface;
  EXPECT_FALSE(cache.inInterfaceQRMIDCache(14, interface));

  setSize({9, 9, 9, 1, 9, 9, 9});  // the oldest is gone already: nothing more happens
  EXPECT_EQ((Ids{1, 2, 3}), held<Interfaces>());
  EXPECT_EQ(3u, peer.subnetAges());
}

TEST_F(SetSizeTest, AnInterfaceGoesWithoutAnySubnetToo) {
  cache.getTopoConfig().setEnableFIFOCacheSwap(true);
  for (const int id : {1, 2, 3}) cache.useInterface(Interfaces::make(id));
  setSize({9, 9, 9, 0, 9, 9, 9});
  EXPECT_EQ((Ids{2, 3}), held<Interfaces>());
  EXPECT_EQ(0u, peer.subnetAges());
}

}  // namespace
}  // namespace zntopo::test
