#include "zntopo/cache/ZNTopoConfig.h"

#include <gtest/gtest.h>

namespace zntopo::test {
namespace {

TEST(ZNTopoConfigTest, TheDefaultsAreThose) {
  const ZNTopoConfig config;
  EXPECT_EQ(10000, config.getNodeCacheSize());
  EXPECT_EQ(15000, config.getInterfaceCacheSize());
  EXPECT_EQ(15000, config.getAddressCacheSize());
  EXPECT_EQ(500, config.getHSRPCacheSize());
  EXPECT_EQ(500, config.getVlanCacheSize());
  EXPECT_EQ(500, config.getIfcCacheSize());
  EXPECT_EQ(500, config.getSubnetCacheSize());
  EXPECT_TRUE(config.toUseCache());
  EXPECT_TRUE(config.toLoadNodeVlanInfo());
  EXPECT_TRUE(config.toLoadNodeIfcInfo());
  EXPECT_TRUE(config.toLoadNodeL2ConnectionInfo());
  EXPECT_FALSE(config.getEnableFIFOCacheSwap());
  EXPECT_TRUE(config.getEnableCacheSwap());
  EXPECT_TRUE(config.getEnableAddressCacheSwap());
}

template <typename T>
struct Property {
  T (ZNTopoConfig::*get)() const;
  void (ZNTopoConfig::*set)(T);
};

constexpr Property<int> kSizes[] = {
    {&ZNTopoConfig::getNodeCacheSize, &ZNTopoConfig::setNodeCacheSize},
    {&ZNTopoConfig::getInterfaceCacheSize, &ZNTopoConfig::setInterfaceCacheSize},
    {&ZNTopoConfig::getAddressCacheSize, &ZNTopoConfig::setAddressCacheSize},
    {&ZNTopoConfig::getHSRPCacheSize, &ZNTopoConfig::setHSRPCacheSize},
    {&ZNTopoConfig::getVlanCacheSize, &ZNTopoConfig::setVlanCacheSize},
    {&ZNTopoConfig::getIfcCacheSize, &ZNTopoConfig::setIfcCacheSize},
    {&ZNTopoConfig::getSubnetCacheSize, &ZNTopoConfig::setSubnetCacheSize},
};

constexpr Property<bool> kSwitches[] = {
    {&ZNTopoConfig::toUseCache, &ZNTopoConfig::setUseCache},
    {&ZNTopoConfig::toLoadNodeVlanInfo, &ZNTopoConfig::setLoadNodeVlanInfo},
    {&ZNTopoConfig::toLoadNodeIfcInfo, &ZNTopoConfig::setLoadNodeIfcInfo},
    {&ZNTopoConfig::toLoadNodeL2ConnectionInfo, &ZNTopoConfig::setLoadNodeL2ConnectionInfo},
    {&ZNTopoConfig::getEnableFIFOCacheSwap, &ZNTopoConfig::setEnableFIFOCacheSwap},
    {&ZNTopoConfig::getEnableCacheSwap, &ZNTopoConfig::setEnableCacheSwap},
    {&ZNTopoConfig::getEnableAddressCacheSwap, &ZNTopoConfig::setEnableAddressCacheSwap},
};

TEST(ZNTopoConfigTest, EachSizeIsSetAloneAndCopied) {
  ZNTopoConfig config;
  int value = 0;
  for (const auto& property : kSizes) (config.*property.set)(++value);
  const ZNTopoConfig copy(config);
  ZNTopoConfig assigned;
  assigned = config;
  value = 0;
  for (const auto& property : kSizes) {
    ++value;
    EXPECT_EQ(value, (config.*property.get)());
    EXPECT_EQ(value, (copy.*property.get)());
    EXPECT_EQ(value, (assigned.*property.get)());
  }
}

TEST(ZNTopoConfigTest, EachSwitchIsSetAloneAndCopied) {
  for (const auto& turned : kSwitches) {
    ZNTopoConfig config;
    (config.*turned.set)(!(config.*turned.get)());
    const ZNTopoConfig copy(config);
    for (const auto& property : kSwitches) {
      const bool isTurned = property.get == turned.get;
      EXPECT_EQ(isTurned, (config.*property.get)() != (ZNTopoConfig().*property.get)());
      EXPECT_EQ((config.*property.get)(), (copy.*property.get)());
    }
  }
}

}  // namespace
}  // namespace zntopo::test
