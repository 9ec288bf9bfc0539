// What a consumer gets that differs from what was sent, whatever carries it.

#include <vector>

#include "tests/notify/NotifySupport.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ReceivedEventsTest : public NotifyTest {};
ZNTOPO_ON_EVENT_MODES(ReceivedEventsTest);

/// What comes of a notification that is sent.
Notification returned(Consumer& consumer, const Notification& sent) {
  FakeCacheOwner::instance().reset();
  EXPECT_EQ(consumer.send(sent), ZN_API_SUCCESS);
  return consumer.client().getNextNotification();
}

/// A notification as what it has to be.
template <typename Kind>
const Kind& as(const Notification& notification) {
  return dynamic_cast<const Kind&>(*notification);
}

TEST_P(ReceivedEventsTest, AStatusChangeHasTheTimeZeroWhateverItHadBefore) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    ObjectStatus major(ObjectStatus::Major);
    ObjectStatus normal(ObjectStatus::Normal);
    const auto change = returned(
        consumer, new TopologyStatusNotification(E_Node, StatusChangeNotif, ObjID("n"), &major,
                                                 &normal, 1'700'000'000, ZNEntity::IPv6Global));
    EXPECT_EQ(as<TopologyStatusNotification>(change).getStatusChangeTime(), 0);
    EXPECT_EQ(as<TopologyStatusNotification>(change).getv6StatusType(), ZNEntity::IPv6Global);
    EXPECT_THAT(FakeCacheOwner::instance().calls(),
                ElementsAre("updateCacheObjectStatus(n, 1, 5, 0, 3)"));
  });
}

TEST_P(ReceivedEventsTest, ATextualAttributeHasNeitherNumberNorText) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    const auto change = returned(
        consumer, new TopologyAttrChangeNotification(E_Node, AttributeChangeNotif, ObjID("n"),
                                                     Snmp_State, E_String, 3, "three", ObjID(), 0));
    EXPECT_EQ(as<TopologyAttrChangeNotification>(change).getAttrType(), Snmp_State);
    EXPECT_EQ(as<TopologyAttrChangeNotification>(change).getAttrValInt(), 0);
    EXPECT_EQ(as<TopologyAttrChangeNotification>(change).getAttrValStr(), "");
  });
}

TEST_P(ReceivedEventsTest, ABinaryByteInATextIsADot) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    const auto life = returned(
        consumer,
        new TopologyLifeCycleNotification(E_Node, LifeCycleNotif, ObjID("a\x01 \t\x7f\xe4z"), 0));
    EXPECT_EQ(life->getSrcID().toString(), "a. \t..z");
  });
}

TEST_P(ReceivedEventsTest, ATextOf2048BytesIsCutTo2047) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    for (const std::size_t size : {2047U, 2048U, 5000U}) {
      const auto life =
          returned(consumer, new TopologyLifeCycleNotification(E_Node, LifeCycleNotif,
                                                               ObjID(std::string(size, 'x')), 0));
      EXPECT_EQ(life->getSrcID().toString(), std::string(2047, 'x')) << size;
    }
  });
}

TEST_P(ReceivedEventsTest, AStateThatIsNotReadyLeavesTheCacheAsItIs) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    for (const TopologyState state : {TOPOLOGY_FAILED, TOPOLOGY_READ_ONLY, TOPOLOGY_DISCO_START}) {
      const auto change =
          returned(consumer, new TopologyStateNotification(E_Unknown, TopologyStateNotif, ObjID(),
                                                           state, 1, 2, 3, Incremental_Discovery));
      EXPECT_EQ(as<TopologyStateNotification>(change).getTopologyState(), state);
      EXPECT_THAT(FakeCacheOwner::instance().calls(), IsEmpty()) << state;
    }
  });
}

}  // namespace
}  // namespace zntopo::test
