#include <ctime>
#include <fstream>
#include <vector>

#include "tests/notify/NotifySupport.h"
#include "tests/notify/TracedTexts.h"
#include "tests/support/FreePort.h"
#include "zntopo/notify/detail/OwningStatusNotification.h"
#include "zntopo/platform/tvutil/TvUtil.h"

/// @file
/// What is sent, as a session of the platform receives it.

namespace zntopo::test {
namespace {

using testing::ElementsAre;

constexpr const char* kAll = ".1.3.6.1.4.1.47231.2.17.1.0.60001101,60001102,60001103,60001104";

std::string nameOf(const SNMPVarBind& variable) {
  const auto is = [&variable](const TVsnmpArc* name) {
    return TVsnmpOidCompare(variable.oid, variable.oid_length, name, marloAttributesLen) == 0;
  };
  return is(marloSourceNameId) ? "source" : is(marloTVwOIDId) ? "object" : "data";
}

/// The event's number, and its variables behind the platform's own.
std::vector<std::string> receivedLines(const OpenSession& session) {
  const ReceivedPdu pdu = receive(session);
  if (!pdu) return {TVsnmpErrString(TVsnmpErrno)};
  std::vector<std::string> lines = {std::to_string(pdu->notify_oid[11])};
  for (auto* next = pdu->variables->next_variable; next != nullptr; next = next->next_variable) {
    const auto* const text = reinterpret_cast<const char*>(next->val.string);
    lines.push_back(nameOf(*next) + (next->type == 2 ? " " + std::to_string(*next->val.integer)
                                                     : " \"" + std::string(text) + "\""));
  }
  return lines;
}

void openSenderOnly() {
  ZNTopoAPIStatus status;
  clientFactory().createNotificationClient("", status);
  ASSERT_TRUE(status.isOK());
}

class SendEventTest : public NotifyTest {
 protected:
  /// What a listener receives of a notification, in a process that only sends.
  static std::vector<std::string> sent(EventMode mode, const Notification& notification) {
    Carrier carrier(mode);
    const OpenSession listener = openSession(kAll);
    openSenderOnly();
    const ZNTopoAPIStatus status = notification->createAndSendNotification();
    EXPECT_EQ(status.getStatus(), ZN_API_SUCCESS) << status.getAuxMsg();
    auto lines = receivedLines(listener);
    clientFactory().doCleanup();
    return lines;
  }
};
ZNTOPO_ON_EVENT_MODES(SendEventTest);

TEST_P(SendEventTest, AStatusChangeTravelsWithTheTimeOfSending) {
  inFreshProcess([mode = GetParam()] {
    ObjectStatus current(ObjectStatus::Major);
    ObjectStatus before(ObjectStatus::Normal);
    const std::time_t start = std::time(nullptr);
    auto lines =
        sent(mode, new TopologyStatusNotification(E_Interface, StatusChangeNotif, ObjID("if-1"),
                                                  &current, &before, 17, ZNEntity::Overall));
    ASSERT_EQ(lines.size(), 9U);
    const long time = std::stol(lines[4].substr(6));
    EXPECT_GE(time, start);
    EXPECT_LE(time, std::time(nullptr));
    lines[4] = "the time";
    EXPECT_THAT(lines, ElementsAre("60001101", "source \"\"", "object \"if-1\"", "data \"marlo\"",
                                   "the time", "data 2", "data 5", "data 1", "data 5"));
  });
}

TEST_P(SendEventTest, AnAttributeChangeTravels) {
  inFreshProcess([mode = GetParam()] {
    EXPECT_THAT(
        sent(mode, new TopologyAttrChangeNotification(E_HSRP, AttributeChangeNotif, ObjID("g"),
                                                      HSRP_Priority, E_Integer, 110, "text",
                                                      ObjID("a"), 3)),
        ElementsAre("60001102", "source \"\"", "object \"g\"", "data \"marlo\"", "data 11",
                    "data 6", "data 0", "data 110", "data \"text\"", "object \"a\"", "data 3"));
  });
}

TEST_P(SendEventTest, TheStateOfAnAssociationTravelsAs999) {
  inFreshProcess([mode = GetParam()] {
    const auto lines =
        sent(mode, new TopologyAttrChangeNotification(E_IfC, AttributeChangeNotif, ObjID("left"),
                                                      static_cast<TopologyAttributeType>(7),
                                                      E_Integer, 1, "", ObjID("right"), 2));
    ASSERT_EQ(lines.size(), 11U);
    EXPECT_EQ(lines[5], "data 999");
  });
}

TEST_P(SendEventTest, ALifeCycleEventTravels) {
  inFreshProcess([mode = GetParam()] {
    EXPECT_THAT(
        sent(mode, new TopologyLifeCycleNotification(E_Node, LifeCycleNotif, ObjID("n"), 7)),
        ElementsAre("60001103", "source \"\"", "object \"n\"", "data \"marlo\"", "data 1",
                    "data 7"));
  });
}

TEST_P(SendEventTest, AStateTravelsWithoutASourceName) {
  inFreshProcess([mode = GetParam()] {
    EXPECT_THAT(sent(mode, new TopologyStateNotification(E_Unknown, TopologyStateNotif, ObjID("t"),
                                                         TOPOLOGY_FAILED, 10, 20, 5,
                                                         Incremental_Discovery)),
                ElementsAre("60001104", "object \"t\"", "data \"marlo\"", "data 0", "data -1",
                            "data 10", "data 20", "data 5", "data 2"));
  });
}

TEST_P(SendEventTest, ANullIdentifierTravelsAsAnEmptyTextAndComesBackNull) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    const OpenSession listener = openSession(kAll);
    Consumer consumer;
    ObjectStatus status;
    ASSERT_EQ(consumer.send(new TopologyStatusNotification(E_Node, StatusChangeNotif, ObjID(),
                                                           &status, &status, 0, ZNEntity::Overall)),
              ZN_API_SUCCESS);
    EXPECT_EQ(receivedLines(listener).at(2), "object \"\"");
    const Notification back = consumer.client().getNextNotification();
    EXPECT_TRUE(back->getSrcID().isNull());
    EXPECT_EQ(described(back), "status Normal to Normal");
  });
}

TEST_P(SendEventTest, AStatusChangeWithoutStatusesTellsOfNone) {
  inFreshProcess([mode = GetParam()] {
    const auto lines =
        sent(mode, new TopologyStatusNotification(E_Node, StatusChangeNotif, ObjID("n"), nullptr,
                                                  nullptr, 0, ZNEntity::Overall));
    ASSERT_EQ(lines.size(), 9U);
    EXPECT_EQ(lines[6], "data 0");
    EXPECT_EQ(lines[7], "data 0");
  });
}

/// One notification of each kind that travels, and the status of a failed send.
struct Kind {
  Notification notification;
  ZNTopoStatus failure;
};

std::vector<Kind> kinds() {
  return {{new detail::OwningStatusNotification(E_Node, ObjID("n"), 1, 2, 0, ZNEntity::Overall),
           ZN_API_STATUS_NOTIF_GEN_ERROR},
          {attributeChange(1), ZN_API_ATTR_NOTIF_GEN_ERROR},
          {new TopologyLifeCycleNotification(E_Node, LifeCycleNotif, ObjID("n"), 7),
           ZN_API_LIFE_CYCLE_GEN_ERROR},
          {new TopologyStateNotification(E_Node, TopologyStateNotif, ObjID("t"), TOPOLOGY_READ_ONLY,
                                         1, 2, 3, Full_Discovery),
           ZN_API_STATE_GEN_ERROR}};
}

TEST_P(SendEventTest, AfterTheCloseEachKindFailsInItsOwnWay) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    openSenderOnly();
    clientFactory().doCleanup();
    for (const Kind& kind : kinds()) {
      const ZNTopoAPIStatus status = kind.notification->createAndSendNotification();
      EXPECT_EQ(status.getStatus(), kind.failure);
      EXPECT_EQ(status.getAuxMsg(), "there is no event session\n");
    }
  });
}

TEST_P(SendEventTest, WithoutASessionEachKindIsAnInternalErrorAndNoneIsOpened) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    for (const Kind& kind : kinds()) {
      EXPECT_EQ(kind.notification->createAndSendNotification().getStatus(), ZN_API_INTERNAL_ERROR);
    }
    EXPECT_TRUE(clientFactory().getTopologySession().isNull());
  });
}

TEST_P(SendEventTest, ATooLargeEventFailsWithTheReason) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    openSenderOnly();
    const ZNTopoAPIStatus status =
        attributeChange(1, ObjID(std::string(70000, 'x')))->createAndSendNotification();
    EXPECT_EQ(status.getStatus(), ZN_API_ATTR_NOTIF_GEN_ERROR);
    EXPECT_EQ(status.getAuxMsg(), "the event is too large\n");
    clientFactory().doCleanup();
  });
}

TEST(SendEventWithoutABrokerTest, EachKindFailsInItsOwnWay) {
  inFreshProcess([] {
    setEnv("TV_EVENT_BROKER", "mqtt://127.0.0.1:" + std::to_string(freePort()));
    ZNTopoAPIStatus opened;
    clientFactory().createNotificationClient("", opened);
    EXPECT_EQ(opened.getStatus(), ZN_API_NOTIFCHANNEL_CREATION_ERROR);
    for (const Kind& kind : kinds()) {
      EXPECT_EQ(kind.notification->createAndSendNotification().getStatus(), kind.failure);
    }
  });
}

TEST(SessionManagementNotificationTest, NeverTravels) {
  inFreshProcess([] {
    SessionManagementNotification notification(SHUTDOWN, ZNTopoAPIStatus(ZN_API_NO_PATH, "why"));
    const ZNTopoAPIStatus status = notification.createAndSendNotification();
    EXPECT_EQ(status.getStatus(), ZN_API_SUCCESS);
    EXPECT_EQ(status.getAuxMsg(), "");
    EXPECT_EQ(notification.getTopologyNotificationType(), SessionManagementNotif);
    EXPECT_EQ(notification.getSrcEntityType(), E_Unknown);
    EXPECT_TRUE(notification.getSrcID().isNull());
    EXPECT_EQ(notification.getStatus().getStatus(), ZN_API_NO_PATH);
    EXPECT_EQ(notification.getNotifSubType(), SHUTDOWN);
  });
}

TEST(EventTraceTest, TellsTheStepsOfASend) {
  inFreshProcess([] {
    const Scratch scratch;
    setEnv("TV_TRACE", scratch.path("trace"));
    unsetenv("TV_EVENT_BROKER");
    openSenderOnly();
    detail::OwningStatusNotification(E_Node, ObjID("n"), 5, 1, 0, ZNEntity::Overall)
        .createAndSendNotification();
    TopologyStateNotification(E_Node, TopologyStateNotif, ObjID("t"), TOPOLOGY_READ_ONLY, 1, 2, 3,
                              Full_Discovery)
        .createAndSendNotification();
    attributeChange(1)->createAndSendNotification();
    EXPECT_THAT(
        tracedTexts(scratch.read("trace"), 1),
        ElementsAre(
            "Creating TopoNotificationClientFactory", "Creating TopoNotificationClientFactory",
            "Opening a SNMP Session", "Creating TopologyNotificationClient",
            "Creating TopoNotificationClientFactory", "EntityType: Node", "PreviousStatus: 1",
            "newStatus: 5", "Status Change Event Successfully Generated",
            "Creating TopoNotificationClientFactory", "Status Change Event Successfully Generated",
            "Creating TopoNotificationClientFactory",
            "Attribute Change Event Successfully Generated"));
  });
}

TEST(EventTraceTest, TellsThatThereIsNoSession) {
  inFreshProcess([] {
    const Scratch scratch;
    setEnv("TV_TRACE", scratch.path("trace"));
    attributeChange(1)->createAndSendNotification();
    EXPECT_THAT(tracedTexts(scratch.read("trace"), 1),
                ElementsAre("Creating TopoNotificationClientFactory", "Session is Null"));
  });
}

}  // namespace
}  // namespace zntopo::test
