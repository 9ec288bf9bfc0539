// Events that topology objects send, and what received ones do to the cache.

#include "tests/platform/tvsnmp/SessionSupport.h"
#include "tests/support/ApiFixture.h"
#include "tests/support/EventBroker.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/PaintedStack.h"
#include "zntopo/model/TopologyGateway.h"
#include "zntopo/notify/CacheOwner.h"
#include "zntopo/notify/SessionManagementNotification.h"
#include "zntopo/notify/TopoNotificationClientFactory.h"
#include "zntopo/notify/TopologyAttrChangeNotification.h"
#include "zntopo/notify/TopologyStateNotification.h"
#include "zntopo/notify/TopologyStatusNotification.h"
#include "zntopo/notify/detail/Receiver.h"

namespace zntopo::test {
namespace {

const TopologyGateway::StatusChange kStatus{
    E_Node, ObjID("n"), ObjectStatus::Major, ObjectStatus::Normal, 17, ZNEntity::Overall};
const TopologyGateway::AttributeChange kAssociation{E_IfC, ObjID("left"), 7, 1, ObjID("right"), 2};

TopoNotificationClientFactory& clientFactory() {
  return *TopoNotificationClientFactory::instance();
}

class EventsTest : public CarriedEventsTest {};
ZNTOPO_ON_EVENT_MODES(EventsTest);

TEST_P(EventsTest, AnObjectThatSendsOpensASessionThatOnlySends) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    EXPECT_TRUE(topologyGateway().ensureNotificationClient().isOK());
    const auto client = clientFactory().getNotificationClient();
    ASSERT_FALSE(client.isNull());
    EXPECT_TRUE(topologyGateway().ensureNotificationClient().isOK());
    EXPECT_EQ(clientFactory().getNotificationClient(), client);
    ASSERT_TRUE(clientFactory().receiveNotification().isOK());
    EXPECT_TRUE(topologyGateway().sendStatusNotification(kStatus).isOK());
    ZNTopoAPI::release();
    // The event did not come to this process.
    const auto first = client->getNextNotification();
    EXPECT_EQ(first->getTopologyNotificationType(), SessionManagementNotif);
  });
}

TEST_P(EventsTest, StatusesAndAttributesOfObjectsTravel) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    ZNTopoAPIStatus status;
    const auto client = clientFactory().createNotificationClient(ALL, status);
    ASSERT_TRUE(clientFactory().receiveNotification().isOK());
    ASSERT_TRUE(topologyGateway().ensureNotificationClient().isOK());
    ASSERT_TRUE(topologyGateway().sendStatusNotification(kStatus).isOK());
    ASSERT_TRUE(topologyGateway().sendAttributeNotification(kAssociation).isOK());
    const auto first = client->getNextNotification();
    const auto* const change =
        dynamic_cast<const TopologyStatusNotification*>(first.getObjectPointer());
    ASSERT_NE(change, nullptr);
    EXPECT_EQ(change->getSrcID(), ObjID("n"));
    EXPECT_EQ(change->getStatus()->getStatus(), ObjectStatus::Major);
    EXPECT_EQ(change->getPrevStatus()->getStatus(), ObjectStatus::Normal);
    EXPECT_EQ(change->getv6StatusType(), ZNEntity::Overall);
    const auto second = client->getNextNotification();
    const auto* const association =
        dynamic_cast<const TopologyAttrChangeNotification*>(second.getObjectPointer());
    ASSERT_NE(association, nullptr);
    EXPECT_EQ(association->getAttrType(), 7);
    EXPECT_EQ(association->getAttrValInt(), 1);
    EXPECT_EQ(association->getIfcRightObjID(), ObjID("right"));
    EXPECT_EQ(association->getIfcAssociationType(), 2);
    ZNTopoAPI::release();
  });
}

TEST_P(EventsTest, WithoutAClientNothingIsSent) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    for (const ZNTopoAPIStatus& status :
         {topologyGateway().sendStatusNotification(kStatus),
          topologyGateway().sendAttributeNotification(kAssociation)}) {
      EXPECT_EQ(status.getStatus(), ZN_API_INTERNAL_ERROR);
      EXPECT_EQ(status.getAuxMsg(), "There is no notification client\n");
    }
  });
}

TEST(EventsWithoutABrokerTest, ABrokerThatCannotBeReachedIsToldToTheObject) {
  inFreshProcess([] {
    setEnv("TV_EVENT_BROKER", "mqtt://127.0.0.1:1");
    EXPECT_EQ(topologyGateway().ensureNotificationClient().getStatus(),
              ZN_API_NOTIFCHANNEL_CREATION_ERROR);
    // From the second time on there is a client, and the send fails.
    EXPECT_TRUE(topologyGateway().ensureNotificationClient().isOK());
    EXPECT_EQ(topologyGateway().sendStatusNotification(kStatus).getStatus(),
              ZN_API_STATUS_NOTIF_GEN_ERROR);
  });
}

TEST_P(EventsTest, ReleaseTellsTheConsumerAndTheCacheLivesOn) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    ZNTopoAPI::release();
    const auto notification = clientFactory().getNotificationClient()->getNextNotification();
    const auto* const end =
        dynamic_cast<const SessionManagementNotification*>(notification.getObjectPointer());
    ASSERT_NE(end, nullptr);
    EXPECT_EQ(end->getNotifSubType(), SHUTDOWN);
    EXPECT_TRUE(ZNTopoAPI().isCacheValid());
  });
}

constexpr int kObjects = 40;

/// A store with objects of each kind in the cache.
class CachedStore {
 public:
  CachedStore() {
    store_.setReady();
    for (int i = 1; i <= kObjects; ++i) {
      store_.addNode(uuid(i), "node");
      store_.addInterface(uuid(i, 'c'), uuid(i), "eth0");
      store_.addAddress(uuid(i, 'b'), uuid(i, 'c'), uuid(i), "192.0.2." + std::to_string(i));
    }
    ZNTopoAPI api;
    ZNTopoAPIStatus status;
    for (int i = 1; i <= kObjects; ++i) {
      EXPECT_FALSE(api.getNodeByObjID(ObjID(uuid(i)), status).isNull());
      EXPECT_FALSE(api.getInterfaceByObjID(ObjID(uuid(i, 'c')), status).isNull());
      EXPECT_FALSE(api.getAddressByObjID(ObjID(uuid(i, 'b')), status).isNull());
    }
    EXPECT_EQ(cachedNodes(), kObjects);
  }

  static int cachedNodes() {
    int count = 0;
    for (int i = 1; i <= kObjects; ++i) {
      ZNRefPtr<ZNNode> node;
      if (ZNTopoAPI_Impl::cache()->inNodeIDCache(ObjID(uuid(i)), node)) ++count;
    }
    return count;
  }

 private:
  TestStore store_;
};

TEST_P(EventsTest, AReadyTopologyClearsTheCacheBeforeTheConsumerSeesIt) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    const CachedStore store;
    ZNTopoAPIStatus status;
    const auto client = clientFactory().createNotificationClient(ALL, status);
    ASSERT_TRUE(clientFactory().receiveNotification().isOK());
    const auto send = [&client](TopologyState state) {
      return client->sendNotification(new TopologyStateNotification(
          E_Unknown, TopologyStateNotif, ObjID(), state, 0, 0, 0, Full_Discovery));
    };
    for (const TopologyState state : {TOPOLOGY_READ_ONLY, TOPOLOGY_DISCO_START, TOPOLOGY_FAILED}) {
      ASSERT_TRUE(send(state).isOK());
      client->getNextNotification();
      EXPECT_EQ(CachedStore::cachedNodes(), kObjects) << state;
    }
    ASSERT_TRUE(send(TOPOLOGY_READY).isOK());
    client->getNextNotification();
    EXPECT_EQ(CachedStore::cachedNodes(), 0);
    ZNTopoAPI::release();
    client->getNextNotification();
    client->getNextNotification();
  });
}

TEST(EventsStackTest, ClearingTheCacheLeavesHalfOfTheStackOfAReceivingThread) {
  const CachedStore store;
  const std::size_t used = stackUsed(detail::Receiver::kStackSize, [] { cacheOwner().clear(); });
  std::printf("stack used by clearing: %zu bytes\n", used);
  EXPECT_EQ(CachedStore::cachedNodes(), 0);
  EXPECT_LT(used, detail::Receiver::kStackSize / 2);
  EXPECT_GT(used, 500U);
}

}  // namespace
}  // namespace zntopo::test
