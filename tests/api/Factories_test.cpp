#include <gtest/gtest.h>

#include <thread>

#include "tests/support/FreshProcess.h"
#include "zntopo/api/ZNTopoAPIDefaultFactory.h"
#include "zntopo/api/ZNTopoAPIImplFactory.h"

namespace zntopo::test {
namespace {

TEST(FactoriesTest, BeforeItsInitialisationAFactoryGivesANullHandle) {
  inFreshProcess([] {
    ZNTopoAPIDefaultFactory factory;
    for (const TopoDBType type : {ActiveDB, WorkingDB}) {
      ZNTopoAPIStatus status(ZN_API_NO_PATH, "of before\n");
      EXPECT_TRUE(factory.getRDInstance(status, type).isNull());
      EXPECT_EQ(status.getStatus(), ZN_API_NOT_INITED);
      EXPECT_EQ(status.getAuxMsg(), "");
    }
  });
}

TEST(FactoriesTest, TheSecondInitialisationPutsItsConfigurationInForce) {
  ZNTopoAPIDefaultFactory factory;
  ZNTopoConfig config;
  config.setNodeCacheSize(11);
  EXPECT_TRUE(factory.initZNTopoAPI(config).isOK());
  EXPECT_EQ(ZNTopoAPI::getTopoConfiguration().getNodeCacheSize(), 11);
  config.setNodeCacheSize(12);
  config.setLoadNodeVlanInfo(false);
  EXPECT_TRUE(factory.initZNTopoAPI(config).isOK());
  EXPECT_EQ(ZNTopoAPI::getTopoConfiguration().getNodeCacheSize(), 12);
  EXPECT_FALSE(ZNTopoAPI::getTopoConfiguration().toLoadNodeVlanInfo());
  ZNTopoAPIStatus status;
  EXPECT_FALSE(factory.getRDInstance(status, ActiveDB).isNull());
  EXPECT_TRUE(status.isOK());
}

TEST(FactoriesTest, WithoutAConfigurationTheDefaultOneIsPutInForce) {
  ZNTopoAPI::getTopoConfiguration().setNodeCacheSize(1);
  ZNTopoAPIDefaultFactory factory;
  EXPECT_TRUE(factory.initZNTopoAPI().isOK());
  EXPECT_EQ(ZNTopoAPI::getTopoConfiguration().getNodeCacheSize(), 10000);
}

/// Counts how often its one-argument form is reached.
class CountingFactory : public ZNTopoAPIODBCFactory {
 public:
  using ZNTopoAPIODBCFactory::initZNTopoAPI;
  ZNTopoAPIStatus initZNTopoAPI(const ZNTopoConfig& config) override {
    ++count;
    return ZNTopoAPIODBCFactory::initZNTopoAPI(config);
  }
  int count = 0;
};

TEST(FactoriesTest, TheFormWithoutArgumentsGoesThroughTheOneThatMayBeOverridden) {
  CountingFactory factory;
  static_cast<ZNTopoAPIFactory&>(factory).initZNTopoAPI();
  EXPECT_EQ(factory.count, 1);
}

TEST(FactoriesTest, OneInstanceOfEachTableSetIsSharedByAllFactories) {
  ZNTopoAPIDefaultFactory first;
  ZNTopoAPIODBCFactory second;
  first.initZNTopoAPI();
  ZNTopoAPIStatus status;
  const auto active = first.getRDInstance(status, ActiveDB);
  const auto working = first.getRDInstance(status, WorkingDB);
  EXPECT_TRUE(active == first.getRDInstance(status, ActiveDB));
  EXPECT_TRUE(active == second.getRDInstance(status, ActiveDB));
  EXPECT_TRUE(working == second.getRDInstance(status, WorkingDB));
  EXPECT_FALSE(active == working);
  // Any other number stands for the working tables.
  EXPECT_TRUE(working == second.getRDInstance(status, static_cast<TopoDBType>(7)));
}

TEST(FactoriesTest, ImplementationsNeedNoInitialisation) {
  ZNTopoAPIImplFactory factory;
  ZNTopoAPIStatus status(ZN_API_NO_PATH, "of before\n");
  const auto active = factory.getImplInstance(status, ActiveDB);
  ASSERT_FALSE(active.isNull());
  EXPECT_TRUE(status.isOK());
  EXPECT_TRUE(active == ZNTopoAPIImplFactory().getImplInstance(status, ActiveDB));
  const auto working = factory.getImplInstance(status, WorkingDB);
  EXPECT_FALSE(active == working);
  EXPECT_EQ(working->findTableNameFromEntityType(E_Node), "nwnode_update");
}

TEST(FactoriesTest, SeveralThreadsGetOneInstance) {
  ZNTopoAPIDefaultFactory().initZNTopoAPI();
  std::vector<ZNRefPtr<ZNTopoAPI>> instances(8);
  std::vector<ZNRefPtr<ZNTopoAPI_Impl>> impls(8);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < instances.size(); ++i) {
    threads.emplace_back([&, i] {
      ZNTopoAPIStatus status;
      instances[i] = ZNTopoAPIDefaultFactory().getRDInstance(status, ActiveDB);
      impls[i] = ZNTopoAPIImplFactory().getImplInstance(status, ActiveDB);
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (std::size_t i = 0; i < instances.size(); ++i) {
    EXPECT_FALSE(instances[i].isNull());
    EXPECT_TRUE(instances[i] == instances[0]);
    EXPECT_TRUE(impls[i] == impls[0]);
  }
}

}  // namespace
}  // namespace zntopo::test
