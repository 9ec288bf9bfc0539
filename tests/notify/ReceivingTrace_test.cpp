// What the trace tells of receiving, to the letter.

#include <vector>

#include "tests/notify/NotifySupport.h"
#include "tests/notify/TracedTexts.h"
#include "tests/support/FreePort.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// The lines of a receiving thread, up to its last event: without those of the main thread.
std::vector<std::string> receivingLines(const std::string& trace) {
  std::vector<std::string> lines = tracedTexts(trace, 1);
  std::erase_if(lines, [](const std::string& line) {
    return line.starts_with("Creating TopoNotif") || line.starts_with("Creating TopologyNotif") ||
           line == "Opening a SNMP Session";
  });
  if (!lines.empty() && lines.back() == "Receiving Data from kvd") lines.pop_back();
  return lines;
}

std::string oidLine(int event) {
  return "The Oid Received is :: .1.3.6.1.4.1.47231.2.17.1.0." + std::to_string(event);
}

TEST(ReceivingTraceTest, TellsTheStepsOfEachKindOfEvent) {
  inFreshProcess([] {
    unsetenv("TV_EVENT_BROKER");
    const Scratch scratch;
    setEnv("TV_TRACE", scratch.path("trace"));
    Consumer consumer;
    const OpenSession sender = openSession("");
    const auto text = [](const char* value) {
      return tvsnmp::EventVariable{{1, 3}, tvsnmp::kTextType, 0, value};
    };
    const auto number = [](long value) {
      return tvsnmp::EventVariable{{1, 3}, tvsnmp::kIntegerType, value, ""};
    };
    for (const unsigned event : {60001101U, 60001102U, 60001103U}) {
      ASSERT_EQ(tvsnmp::sendEvent(sender.get(), {event, {}}), EventError::None);
    }
    ASSERT_EQ(
        tvsnmp::sendEvent(sender.get(), {60001104,
                                         {text("topology"), text("marlo"), number(1), number(2),
                                          number(10), number(20), number(5), number(1)}}),
        EventError::None);
    for (int i = 0; i < 4; ++i) consumer.next();
    EXPECT_THAT(
        receivingLines(scratch.read("trace")),
        ElementsAre("Creating a thread using pthread_create",  //
                    "Receiving Data from kvd", oidLine(60001101),
                    "Creating Status Change Notification from PDU",  //
                    "Receiving Data from kvd", oidLine(60001102),
                    "Creating Attribute Change Notification from PDU",  //
                    "Receiving Data from kvd", oidLine(60001103),
                    "Creating Life Cycle Notification from PDU",  //
                    "Receiving Data from kvd", oidLine(60001104),
                    "Creating Topology State Notification from PDU",
                    "Creating State Notif: entType = 1 topoNotif = 5 objID = topology state = 2 "
                    "startTime = 10 endTime = 20 prevDiscoEndTime = 5 discoFlag = 1"));
    EXPECT_THAT(tracedTexts(scratch.read("trace"), 4), IsEmpty());
  });
}

TEST(ReceivingTraceTest, TellsWhyNothingCouldBeReceived) {
  ZNTOPO_NEED_BROKER();
  inFreshProcess([] {
    Carrier carrier(EventMode::Broker);
    const Scratch scratch;
    setEnv("TV_TRACE", scratch.path("trace"));
    Consumer consumer;
    carrier.broker().crash();
    EXPECT_EQ(consumer.next(), "error 45");
    EXPECT_THAT(tracedTexts(scratch.read("trace"), 4),
                ElementsAre("TVsnmpRecv() failed, TVsnmpError = 10:the event broker was lost"));
  });
}

TEST(ReceivingTraceTest, TellsOfASessionThatCannotBeOpenedAndOfASendWithoutIt) {
  inFreshProcess([] {
    setEnv("TV_EVENT_BROKER", "mqtt://127.0.0.1:" + std::to_string(freePort()));
    const Scratch scratch;
    setEnv("TV_TRACE", scratch.path("trace"));
    ZNTopoAPIStatus status;
    clientFactory().createNotificationClient(ALL, status);
    EXPECT_EQ(attributeChange(1)->createAndSendNotification().getStatus(),
              ZN_API_ATTR_NOTIF_GEN_ERROR);
    EXPECT_THAT(tracedTexts(scratch.read("trace"), 4),
                ElementsAre("A Session with the Kvd could not be established",
                            "there is no event session"));
  });
}

}  // namespace
}  // namespace zntopo::test
