#include <ctime>

#include "tests/model/ModelFixture.h"
#include "zntopo/model/BaseAspectFactoryImpl.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kName = "MonitoredIPv6Aspect";

class AspectsTest : public ModelTest {
 protected:
  static ZNRefPtr<ZNEntity> entityOf(ZNEntity::IPLevel level) {
    EntityParts parts;
    parts.level = level;
    return new ZNEntity(parts.entity());
  }

  BaseAspectFactoryImpl factory_;
  ZNRefPtr<ZNEntity> v4_ = entityOf(ZNEntity::IPv4);
  ZNRefPtr<ZNEntity> v6_ = entityOf(ZNEntity::IPv6);
  ZNRefPtr<ZNEntity> all_ = entityOf(ZNEntity::AllProtocol);
};

TEST_F(AspectsTest, TheConstantsHaveTheirTexts) {
  EXPECT_STREQ("MonitoredIPv6Aspect", MonitoredIPv6Aspect::AspectName);
  EXPECT_STREQ("IPv6SiteLocalStatus", MonitoredIPv6Aspect::SiteLocalStatus);
  EXPECT_STREQ("IPv6GlobalStatus", MonitoredIPv6Aspect::GlobalStatus);
}

TEST_F(AspectsTest, TheFactoryKnowsOneAspect) {
  EXPECT_THAT(factory_.getFactoryRecognizedAspectNames(), ElementsAre(kName));
}

TEST_F(AspectsTest, OnlyEntitiesOfLevelIPv6HaveTheAspect) {
  EXPECT_THAT(factory_.getValidAspectNames(v6_), ElementsAre(kName));
  EXPECT_THAT(factory_.getValidAspectNames(v4_), IsEmpty());
  EXPECT_THAT(factory_.getValidAspectNames(all_), IsEmpty());
  EXPECT_TRUE(factory_.isAspectValid(v6_, kName));
  EXPECT_FALSE(factory_.isAspectValid(v6_, "Another"));
  EXPECT_FALSE(factory_.isAspectValid(v4_, kName));
  EXPECT_FALSE(factory_.isAspectValid(all_, kName));
}

TEST_F(AspectsTest, AnAspectIsMadeForAnEntityThatHasIt) {
  const std::unique_ptr<Aspect> aspect = factory_.createAspect(v6_, kName);
  ASSERT_NE(nullptr, aspect);
  EXPECT_EQ(kName, aspect->getAspectName());
  EXPECT_NE(nullptr, factory_.createMonitoredIPv6Aspect(v6_));
}

TEST_F(AspectsTest, NoAspectIsMadeForAnIPv4EntityOrAnotherName) {
  EXPECT_EQ(nullptr, factory_.createAspect(v4_, kName));
  EXPECT_EQ(nullptr, factory_.createMonitoredIPv6Aspect(v4_));
  EXPECT_EQ(nullptr, factory_.createAspect(v6_, "Another"));
}

TEST_F(AspectsTest, ANullEntityHasNoAspect) {
  const ZNRefPtr<ZNEntity> null;
  EXPECT_THAT(factory_.getValidAspectNames(null), IsEmpty());
  EXPECT_FALSE(factory_.isAspectValid(null, kName));
  EXPECT_EQ(nullptr, factory_.createAspect(null, kName));
}

TEST_F(AspectsTest, ASubclassCanWidenWhatIsValid) {
  class Widened : public BaseAspectFactoryImpl {
   public:
    bool isAspectValid(ZNRefPtr<ZNEntity>, const std::string&) override { return true; }
  };
  Widened widened;
  EXPECT_NE(nullptr, widened.createAspect(v4_, kName));
  const std::unique_ptr<MonitoredIPv6Aspect> ofNull =
      widened.createMonitoredIPv6Aspect(ZNRefPtr<ZNEntity>());
  ASSERT_NE(nullptr, ofNull);
  EXPECT_EQ(ObjectStatus::Normal, ofNull->getOverallStatus().getStatus());
  EXPECT_THAT(*ofNull->getMonitoredIPv6Addresses(), IsEmpty());
}

TEST_F(AspectsTest, TheAspectReadsTheStatusesOfItsEntity) {
  const MonitoredIPv6Aspect aspect(v6_);
  EXPECT_EQ(ObjectStatus::Critical, aspect.getSiteLocalStatus().getStatus());
  EXPECT_EQ(ObjectStatus::Marginal, aspect.getGlobalStatus().getStatus());
  EXPECT_EQ(ObjectStatus::Warning, aspect.getOverallStatus().getStatus());
}

TEST_F(AspectsTest, TheAspectSetsTheStatusesInMemoryAtTheCurrentTime) {
  MonitoredIPv6Aspect aspect(v6_);
  const std::time_t before = std::time(nullptr);
  aspect.setSiteLocalStatus(ObjectStatus::Testing);
  EXPECT_EQ(ObjectStatus::Testing, v6_->getV6SiteStatus().getStatus());
  EXPECT_TRUE(v6_->isV6SiteStatusModified());
  EXPECT_GE(v6_->getStatusChangeTime(), before);
  aspect.setGlobalStatus(ObjectStatus::Disabled);
  EXPECT_EQ(ObjectStatus::Disabled, v6_->getV6GlobalStatus().getStatus());
  EXPECT_TRUE(v6_->isV6GlobalStatusModified());
  aspect.setOverallStatus(ObjectStatus::Unknown);
  EXPECT_EQ(ObjectStatus::Unknown, v6_->getV6OverallStatus().getStatus());
  EXPECT_TRUE(v6_->isV6OverallStatusModified());
  EXPECT_EQ(3, gateway().callCount("getTopoMode"));
  EXPECT_EQ(3u, gateway().calls().size());
}

TEST_F(AspectsTest, TheMonitoredAddressesAreTheIPv6OnesAndNullWhereNotMonitored) {
  const InetAddressIPv6 plain("2001:db8::1", InetAddressIPv6::Global, 64, false, ObjID("b1"),
                              ObjID("owner"), ObjID(), ActiveDB);
  const ZNRefPtr<ZNAddress> monitored(new MonitoredInetAddressIPv6(plain));
  const ZNRefPtr<ZNAddress> others[] = {ipv4("a1", "10.0.0.1"),
                                        ipv6("b2", "2001:db8::2", InetAddressIPv6::Global)};
  gateway().addAddress(monitored);
  for (const auto& address : others) gateway().addAddress(address);
  v6_->setAddresses({others[0], monitored, others[1]});
  const auto addresses = MonitoredIPv6Aspect(v6_).getMonitoredIPv6Addresses();
  ASSERT_EQ(2u, addresses->size());
  EXPECT_EQ(monitored.getObjectPointer(), addresses->front().getObjectPointer());
  EXPECT_TRUE(addresses->back().isNull());
}

TEST_F(AspectsTest, TheTextTellsTheStatusesAndTheEntity) {
  EXPECT_EQ(
      "\n+++++++++++++++MonitoredIPv6Aspect++++++++++++\nGlobalStatus:Marginal"
      "\nSiteLocalStatus:Critical\nOverallStatus:Warning\nEntityObjID:entity"
      "\n---------------------MonitoredIPv6Aspect-------------",
      MonitoredIPv6Aspect(v6_).toString());
}

}  // namespace
}  // namespace zntopo::test
