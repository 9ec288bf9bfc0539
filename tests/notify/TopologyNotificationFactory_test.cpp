#include "zntopo/notify/TopologyNotificationFactory.h"

#include <vector>

#include "tests/notify/NotifySupport.h"
#include "tests/support/CapturedLog.h"
#include "zntopo/platform/tvsnmp/detail/EventPdu.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A variable to send: a number or a text.
struct Value {
  Value(int number) : variable{{1, 3}, 2, number, ""} {}                // NOLINT
  Value(long number) : variable{{1, 3}, 2, number, ""} {}               // NOLINT
  Value(const char* text) : variable{{1, 3}, 4, 0, text} {}             // NOLINT
  Value(std::string text) : variable{{1, 3}, 4, 0, std::move(text)} {}  // NOLINT
  tvsnmp::EventVariable variable;
};

ReceivedPdu pduOf(unsigned event, const std::vector<Value>& values) {
  tvsnmp::Event sent{event, {}};
  for (const Value& value : values) sent.variables.push_back(value.variable);
  std::string bytes;
  EXPECT_EQ(tvsnmp::encode(sent, bytes), tvsnmp::EventError::None);
  return ReceivedPdu(tvsnmp::decode(bytes));
}

Notification notificationOf(unsigned event, const std::vector<Value>& values) {
  const ReceivedPdu pdu = pduOf(event, values);
  return TopologyNotificationFactory::createNotification(pdu.get());
}

template <typename T>
const T& as(const Notification& notification) {
  const auto* const typed = dynamic_cast<const T*>(notification.getObjectPointer());
  if (typed == nullptr) throw std::runtime_error("another notification");
  return *typed;
}

class TopologyNotificationFactoryTest : public testing::Test {
 protected:
  void SetUp() override { FakeCacheOwner::instance().reset(); }

  static std::vector<std::string> cacheCalls() { return FakeCacheOwner::instance().calls(); }
};

TEST_F(TopologyNotificationFactoryTest, AStatusChangeHasItsFields) {
  const Notification read =
      notificationOf(60001101, {"", "node-1", "marlo", "1700000000", 1, 6, 3, 4});
  const auto& status = as<TopologyStatusNotification>(read);
  EXPECT_EQ(status.getTopologyNotificationType(), StatusChangeNotif);
  EXPECT_EQ(status.getSrcID(), ObjID("node-1"));
  EXPECT_EQ(status.getSrcEntityType(), E_Node);
  EXPECT_EQ(status.getStatus()->getStatus(), ObjectStatus::Critical);
  EXPECT_EQ(status.getPrevStatus()->getStatus(), ObjectStatus::Warning);
  EXPECT_EQ(status.getv6StatusType(), ZNEntity::IPv4Overall);
}

TEST_F(TopologyNotificationFactoryTest, AReceivedStatusChangeHasTheTimeZeroWhateverWasSent) {
  for (const Value& time : {Value("1700000000"), Value("7"), Value(1700000000), Value("")}) {
    const Notification read = notificationOf(60001101, {"", "n", "marlo", time, 1, 6, 3, 4});
    EXPECT_EQ(as<TopologyStatusNotification>(read).getStatusChangeTime(), 0);
    EXPECT_EQ(as<TopologyStatusNotification>(read).getSrcEntityType(), E_Node);
  }
}

TEST_F(TopologyNotificationFactoryTest, TheStatusesLiveAsLongAsTheHandle) {
  Notification kept;
  {
    const Notification read = notificationOf(60001101, {"", "n", "marlo", "0", 1, 5, 1, 5});
    kept = read;
  }
  EXPECT_EQ(described(kept), "status Normal to Major");
}

TEST_F(TopologyNotificationFactoryTest, AStatusChangeOfAnAddressIsOfNoKnownType) {
  const Notification read = notificationOf(60001101, {"", "a", "marlo", "0", 25, 5, 1, 5});
  EXPECT_EQ(read->getSrcEntityType(), E_Unknown);
}

TEST_F(TopologyNotificationFactoryTest, AnAttributeChangeHasItsFields) {
  const Notification read =
      notificationOf(60001102, {"", "group-1", "marlo", 11, 6, 0, 110, "", "address-1", 3});
  const auto& change = as<TopologyAttrChangeNotification>(read);
  EXPECT_EQ(change.getTopologyNotificationType(), AttributeChangeNotif);
  EXPECT_EQ(change.getSrcID(), ObjID("group-1"));
  EXPECT_EQ(change.getSrcEntityType(), E_HSRP);
  EXPECT_EQ(change.getAttrType(), HSRP_Priority);
  EXPECT_EQ(change.getAttrValType(), E_Integer);
  EXPECT_EQ(change.getAttrValInt(), 110);
  EXPECT_EQ(change.getAddrId(), ObjID("address-1"));
  EXPECT_EQ(change.getIfcRightObjID(), ObjID("address-1"));
  EXPECT_EQ(change.getIfcAssociationType(), 3);
}

TEST_F(TopologyNotificationFactoryTest, AnAttributeChangeOfAnAddressKeepsItsType) {
  const Notification read = notificationOf(60001102, {"", "a", "marlo", 25, 4, 0, 2, "", "", 0});
  EXPECT_EQ(read->getSrcEntityType(), E_Address);
}

TEST_F(TopologyNotificationFactoryTest, AReceivedTextualAttributeHasNeitherNumberNorText) {
  const Notification read =
      notificationOf(60001102, {"", "n", "marlo", 1, 5, 1, 42, "forty-two", "other", 1});
  const auto& change = as<TopologyAttrChangeNotification>(read);
  EXPECT_EQ(change.getAttrValType(), E_String);
  EXPECT_EQ(change.getAttrValInt(), 0);
  EXPECT_EQ(change.getAttrValStr(), "");
  EXPECT_EQ(change.getAddrId(), ObjID("other"));
}

TEST_F(TopologyNotificationFactoryTest, TheStateOfAnAssociationComesAsTheNumberBehindTheOthers) {
  const Notification read =
      notificationOf(60001102, {"", "left", "marlo", 12, 999, 0, 1, "", "right", 2});
  EXPECT_EQ(as<TopologyAttrChangeNotification>(read).getAttrType(), 7);
}

TEST_F(TopologyNotificationFactoryTest, AnAttributeThatThereIsNotIsRefusedWithALineInTheLog) {
  for (const int number : {7, 8, -1, 1000, 2000000000}) {
    const CapturedLog log;
    EXPECT_TRUE(notificationOf(60001102, {"", "n", "marlo", 1, number, 0, 1, "", "", 0}).isNull());
    EXPECT_THAT(log.lines(), ElementsAre("An event of the attribute " + std::to_string(number) +
                                         ", which there is not, is skipped\n"));
  }
}

TEST_F(TopologyNotificationFactoryTest, ALifeCycleEventCallsItselfAnAttributeChange) {
  const Notification read = notificationOf(60001103, {"", "n", "marlo", 25, 77});
  const auto& life = as<TopologyLifeCycleNotification>(read);
  EXPECT_EQ(life.getTopologyNotificationType(), AttributeChangeNotif);
  EXPECT_EQ(life.getSrcID(), ObjID("n"));
  EXPECT_EQ(life.getSrcEntityType(), E_Address);
  EXPECT_EQ(life.getZoneID(), 77);
}

TEST_F(TopologyNotificationFactoryTest, AStateAloneHasNoSourceName) {
  const Notification read = notificationOf(60001104, {"topology", "marlo", 1, 1, 10, 20, 5, 2});
  const auto& state = as<TopologyStateNotification>(read);
  EXPECT_EQ(state.getTopologyNotificationType(), TopologyStateNotif);
  EXPECT_EQ(state.getSrcID(), ObjID("topology"));
  EXPECT_EQ(state.getSrcEntityType(), E_Node);
  EXPECT_EQ(state.getTopologyState(), TOPOLOGY_READ_ONLY);
  EXPECT_EQ(state.getDiscoStartTime(), 10);
  EXPECT_EQ(state.getDiscoEndTime(), 20);
  EXPECT_EQ(state.getPrevDiscoEndTime(), 5);
  EXPECT_EQ(state.getDiscoFlag(), Incremental_Discovery);
}

TEST_F(TopologyNotificationFactoryTest, AReadyTopologyClearsTheCacheOnce) {
  notificationOf(60001104, {"t", "marlo", 1, 0, 10, 20, 5, 2});
  EXPECT_THAT(cacheCalls(), ElementsAre("clear()"));
}

TEST_F(TopologyNotificationFactoryTest, AnyOtherStateLeavesTheCacheAsItIs) {
  for (const int state : {-1, 1, 2, 3}) {
    notificationOf(60001104, {"t", "marlo", 1, state, 10, 20, 5, 2});
  }
  EXPECT_THAT(cacheCalls(), IsEmpty());
}

TEST_F(TopologyNotificationFactoryTest, AStateEventWithoutAStateIsReadyAndClearsTheCache) {
  for (const std::vector<Value>& values :
       {std::vector<Value>{}, {"t", "marlo", 1}, {"t", "marlo", 1, "one"}}) {
    FakeCacheOwner::instance().reset();
    EXPECT_EQ(described(notificationOf(60001104, values)), "state 0");
    EXPECT_THAT(cacheCalls(), ElementsAre("clear()"));
  }
}

TEST_F(TopologyNotificationFactoryTest, AnEmptyTextIsANullIdentifier) {
  const Notification read = notificationOf(60001101, {"", "", "marlo", "0", 1, 6, 3, 4});
  EXPECT_TRUE(read->getSrcID().isNull());
}

TEST_F(TopologyNotificationFactoryTest, ABinaryByteInATextArrivesAsADot) {
  const Notification read =
      notificationOf(60001101, {"", std::string("a\0b\x7f\xc3\t \n", 8), "marlo", "0", 1, 6, 3, 4});
  EXPECT_EQ(read->getSrcID().toString(), "a.b..\t \n");
}

TEST_F(TopologyNotificationFactoryTest, ATextOf2048BytesAndMoreIsCutTo2047) {
  for (const std::size_t size : {std::size_t{2047}, std::size_t{2048}, std::size_t{50000}}) {
    const Notification read =
        notificationOf(60001101, {"", std::string(size, 'x'), "marlo", "0", 1, 6, 3, 4});
    EXPECT_EQ(read->getSrcID().toString(), std::string(2047, 'x'));
  }
}

TEST_F(TopologyNotificationFactoryTest, WhatIsMissingIsZeroOrEmpty) {
  const Notification status = notificationOf(60001101, {});
  EXPECT_TRUE(status->getSrcID().isNull());
  EXPECT_EQ(status->getSrcEntityType(), E_Unknown);
  EXPECT_EQ(described(status), "status NoStatus to NoStatus");
  const Notification attribute = notificationOf(60001102, {"", "n"});
  EXPECT_EQ(attribute->getSrcID(), ObjID("n"));
  EXPECT_EQ(as<TopologyAttrChangeNotification>(attribute).getAttrType(), HSRP_State);
  EXPECT_EQ(as<TopologyAttrChangeNotification>(attribute).getAttrValType(), E_Integer);
  EXPECT_EQ(described(notificationOf(60001103, {"", "n", "marlo", 1})), "life cycle 0");
}

TEST_F(TopologyNotificationFactoryTest, WhatIsTooMuchIsIgnored) {
  std::vector<Value> values = {"", "n", "marlo", 1, 9};
  for (int i = 0; i < 100; ++i) values.emplace_back(i);
  EXPECT_EQ(described(notificationOf(60001103, values)), "life cycle 9");
}

TEST_F(TopologyNotificationFactoryTest, AVariableOfAnotherTypeCountsAsMissing) {
  const Notification status = notificationOf(60001101, {1, 2, 3, 4, "one", "6", "three", "4"});
  EXPECT_TRUE(status->getSrcID().isNull());
  EXPECT_EQ(status->getSrcEntityType(), E_Unknown);
  EXPECT_EQ(described(status), "status NoStatus to NoStatus");
}

TEST_F(TopologyNotificationFactoryTest, OfAnIntegerTheLow32BitsCount) {
  const ReceivedPdu pdu = pduOf(60001103, {"", "n", "marlo", 1, 9});
  SNMPVarBind* last = pdu->variables;
  while (last->next_variable != nullptr) last = last->next_variable;
  *last->val.integer = (5L << 32) + 17;
  EXPECT_EQ(described(TopologyNotificationFactory::createNotification(pdu.get())), "life cycle 17");
}

TEST_F(TopologyNotificationFactoryTest, AVariableWithoutAValueCountsAsMissing) {
  const ReceivedPdu pdu = pduOf(60001103, {"", "n", "marlo", 1, 9});
  for (SNMPVarBind* next = pdu->variables; next != nullptr; next = next->next_variable) {
    next->val.string = nullptr;
  }
  const Notification read = TopologyNotificationFactory::createNotification(pdu.get());
  EXPECT_TRUE(read->getSrcID().isNull());
  EXPECT_EQ(described(read), "life cycle 0");
}

TEST_F(TopologyNotificationFactoryTest, AnEventOfAnotherKindGivesNothing) {
  for (const unsigned event : {60001100U, 60001105U, 0U}) {
    EXPECT_TRUE(notificationOf(event, {"", "n", "marlo", 1, 9}).isNull());
  }
  EXPECT_TRUE(TopologyNotificationFactory::createNotification(nullptr).isNull());
  EXPECT_TRUE(TopologyNotificationFactory::createStatusChangeNotif(nullptr).isNull());
  EXPECT_TRUE(TopologyNotificationFactory::createAttrChangeNotif(nullptr).isNull());
  EXPECT_TRUE(TopologyNotificationFactory::createLifeCycleNotif(nullptr).isNull());
  EXPECT_TRUE(TopologyNotificationFactory::createTopologyStateNotif(nullptr).isNull());
}

TEST_F(TopologyNotificationFactoryTest, TheWholeIdentifierTellsTheEvent) {
  const ReceivedPdu pdu = pduOf(60001103, {"", "n", "marlo", 1, 9});
  pdu->notify_oid_length = 11;
  EXPECT_TRUE(TopologyNotificationFactory::createNotification(pdu.get()).isNull());
  pdu->notify_oid_length = 12;
  pdu->notify_oid[9] = 2;
  EXPECT_TRUE(TopologyNotificationFactory::createNotification(pdu.get()).isNull());
  pdu->notify_oid[9] = 1;
  EXPECT_FALSE(TopologyNotificationFactory::createNotification(pdu.get()).isNull());
}

TEST_F(TopologyNotificationFactoryTest, WhatIsNoNotificationGivesNothing) {
  const ReceivedPdu pdu(tvsnmp::decode("?"));
  EXPECT_TRUE(TopologyNotificationFactory::createNotification(pdu.get()).isNull());
}

std::string formatted(std::string text, int destSize, int srcLen) {
  char buffer[16] = "###############";
  TopologyNotificationFactory::formatString(buffer, destSize,
                                            reinterpret_cast<unsigned char*>(text.data()), srcLen);
  return buffer;
}

TEST(FormatStringTest, CopiesNoMoreThanFitsAndThanThereIs) {
  EXPECT_EQ(formatted("abcdef", 16, 6), "abcdef");
  EXPECT_EQ(formatted("abcdef", 16, 3), "abc");
  EXPECT_EQ(formatted("abcdef", 4, 6), "abc");
  EXPECT_EQ(formatted("abcdef", 1, 6), "");
  EXPECT_EQ(formatted("abcdef", 16, 0), "");
  EXPECT_EQ(formatted("abcdef", 16, -1), "");
}

TEST(FormatStringTest, WritesNothingWhereNothingFits) {
  EXPECT_EQ(formatted("abc", 0, 3), "###############");
  EXPECT_EQ(formatted("abc", -1, 3), "###############");
  TopologyNotificationFactory::formatString(nullptr, 10, nullptr, 3);
  char buffer[4] = "##";
  TopologyNotificationFactory::formatString(buffer, 4, nullptr, 3);
  EXPECT_STREQ(buffer, "");
}

}  // namespace
}  // namespace zntopo::test
