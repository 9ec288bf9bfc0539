#include "tests/notify/NotifySupport.h"
#include "zntopo/notify/detail/OwningStatusNotification.h"
#include "zntopo/notify/detail/Receiver.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The calls of the cache's owner that a notification brings about.
std::vector<std::string> calls(const Notification& notification) {
  FakeCacheOwner::instance().reset();
  ZNTopoAPIStatus status;
  detail::applyToCache(*notification, status);
  return FakeCacheOwner::instance().calls();
}

Notification statusChange(EntityType type) {
  return new detail::OwningStatusNotification(type, ObjID("x"), ObjectStatus::Major,
                                              ObjectStatus::Normal, 99, ZNEntity::IPv6Global);
}

TEST(ApplyToCacheTest, AStatusChangesTheObject) {
  EXPECT_THAT(calls(statusChange(E_Subnet)),
              ElementsAre("updateCacheObjectStatus(x, 7, 5, 99, 3)"));
  EXPECT_THAT(calls(statusChange(E_HSRP)), ElementsAre("updateCacheObjectStatus(x, 11, 5, 99, 3)"));
}

TEST(ApplyToCacheTest, AStatusOfAnAddressDoesNotTouchTheCache) {
  EXPECT_THAT(calls(statusChange(E_Address)), IsEmpty());
}

TEST(ApplyToCacheTest, AnAttributeChangesTheObject) {
  EXPECT_THAT(
      calls(new TopologyAttrChangeNotification(E_HSRP, AttributeChangeNotif, ObjID("g"),
                                               HSRP_Priority, E_Integer, 110, "", ObjID("a"), 0)),
      ElementsAre("updateCacheObjectAttribute(g, 11, 6, 110, a)"));
}

TEST(ApplyToCacheTest, AReadyTopologyClearsTheCacheAndNoOtherStateDoes) {
  const auto state = [](int number) -> Notification {
    return new TopologyStateNotification(E_Unknown, TopologyStateNotif, ObjID(),
                                         static_cast<TopologyState>(number), 0, 0, 0,
                                         Full_Discovery);
  };
  EXPECT_THAT(calls(state(TOPOLOGY_READY)), ElementsAre("clear()"));
  for (const int other : {-1, 1, 2}) EXPECT_THAT(calls(state(other)), IsEmpty());
}

TEST(ApplyToCacheTest, ALifeCycleEventDoesNothingWhateverItCallsItself) {
  for (const auto type : {StatusChangeNotif, AttributeChangeNotif, LifeCycleNotif,
                          SessionManagementNotif, TopologyStateNotif}) {
    EXPECT_THAT(calls(new TopologyLifeCycleNotification(E_Node, type, ObjID("n"), 1)), IsEmpty());
  }
}

TEST(ApplyToCacheTest, WhatIsNotWhatItsTypeSaysDoesNothing) {
  for (const auto type :
       {AttributeChangeNotif, TopologyStateNotif, SessionManagementNotif, LifeCycleNotif}) {
    ObjectStatus status;
    EXPECT_THAT(calls(new TopologyStatusNotification(E_Node, type, ObjID("n"), &status, &status, 0,
                                                     ZNEntity::Overall)),
                IsEmpty());
  }
  EXPECT_THAT(calls(new TopologyStatusNotification(E_Node, StatusChangeNotif, ObjID("n"), nullptr,
                                                   nullptr, 0, ZNEntity::Overall)),
              IsEmpty());
  EXPECT_THAT(calls(new SessionManagementNotification(ERROR, ZNTopoAPIStatus())), IsEmpty());
}

}  // namespace
}  // namespace zntopo::test
