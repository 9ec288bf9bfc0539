#include <gtest/gtest.h>
#include <poll.h>

#include <chrono>
#include <vector>

#include "tests/platform/tvsnmp/SessionSupport.h"
#include "tests/support/CuttingProxy.h"
#include "tests/support/EventBroker.h"

/// @file
/// Two brokers of which one has a bridge to the other, as docs/events.md tells to make it.

namespace zntopo::test {
namespace {

std::string bridgeTo(int port) {
  return "allow_anonymous true\nconnection other\naddress 127.0.0.1:" + std::to_string(port) +
         "\ntopic tv/event/# both 1\nrestart_timeout 1\n";
}

bool isReadable(const OpenSession& session) {
  pollfd one{session->sock_fd, POLLIN, 0};
  return poll(&one, 1, 20) == 1;
}

/// Sends until something arrives at the other broker: the bridge stands.
bool awaitBridge(const OpenSession& from, const OpenSession& to) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (std::chrono::steady_clock::now() < end) {
    if (sendNumber(from, 60001102, -1) != EventError::None) return false;
    if (isReadable(to)) return true;
  }
  return false;
}

/// The numbers from 0 on that a session receives until it has this many.
std::vector<int> receivedNumbers(const OpenSession& session, std::size_t count) {
  std::vector<int> numbers;
  while (numbers.size() < count) {
    const ReceivedPdu pdu = receive(session);
    if (!pdu) break;
    const int number = static_cast<int>(*pdu->variables->next_variable->val.integer);
    if (number >= 0) numbers.push_back(number);
  }
  return numbers;
}

TEST(BridgedBrokersTest, EachGivesTheEventsOfBothOnceAndInTheOrderOfEachSender) {
  ZNTOPO_NEED_BROKER();
  const EventBroker one;
  const EventBroker two(bridgeTo(one.port()));
  const OpenSession atOne = openSession(kTwo, one.name().c_str());
  const OpenSession atTwo = openSession(kTwo, two.name().c_str());
  ASSERT_TRUE(atOne && atTwo);
  ASSERT_TRUE(awaitBridge(atOne, atTwo));
  constexpr int kEvents = 1000;
  constexpr int kLast = 2 * kEvents;
  for (int i = 0; i < kEvents; ++i) {
    ASSERT_EQ(sendNumber(atOne, 60001102, i), EventError::None);
    ASSERT_EQ(sendNumber(atTwo, 60001102, kEvents + i), EventError::None);
  }
  for (const OpenSession* const session : {&atOne, &atTwo}) {
    int nextOfOne = 0;
    int nextOfTwo = kEvents;
    for (const int number : receivedNumbers(*session, kLast)) {
      ASSERT_EQ(number, number < kEvents ? nextOfOne++ : nextOfTwo++);
    }
    EXPECT_EQ(nextOfOne, kEvents);
    EXPECT_EQ(nextOfTwo, kLast);
  }
  // What came a second time would come before these.
  ASSERT_EQ(sendNumber(atOne, 60001102, kLast), EventError::None);
  ASSERT_EQ(sendNumber(atTwo, 60001102, kLast), EventError::None);
  const std::vector<int> last(2, kLast);
  EXPECT_EQ(receivedNumbers(atOne, 2), last);
  EXPECT_EQ(receivedNumbers(atTwo, 2), last);
}

/// How many numbers from one on, in their order, a session gets. One that comes again counts once.
int numbersFrom(int first, int count, const OpenSession& session) {
  int next = first;
  while (next < first + count) {
    const std::vector<int> number = receivedNumbers(session, 1);
    if (number.empty() || number.front() > next) break;
    if (number.front() == next) ++next;
  }
  return next - first;
}

TEST(BridgedBrokersTest, WhatEachTakesWhileTheBridgeIsDownReachesTheOtherInItsOrder) {
  ZNTOPO_NEED_BROKER();
  const EventBroker one;
  CuttingProxy wire(one.port());
  const EventBroker two(bridgeTo(wire.port()));
  const OpenSession atOne = openSession(kTwo, one.name().c_str());
  const OpenSession atTwo = openSession(kTwo, two.name().c_str());
  ASSERT_TRUE(atOne && atTwo);
  ASSERT_TRUE(awaitBridge(atOne, atTwo));
  wire.cutAfter(0);
  constexpr int kEvents = 1000;
  for (int i = 0; i < kEvents; ++i) {
    ASSERT_EQ(sendNumber(atOne, 60001102, i), EventError::None);
    ASSERT_EQ(sendNumber(atTwo, 60001102, kEvents + i), EventError::None);
  }
  // Each broker has its own.
  ASSERT_EQ(numbersFrom(0, kEvents, atOne), kEvents);
  ASSERT_EQ(numbersFrom(kEvents, kEvents, atTwo), kEvents);
  EXPECT_FALSE(isReadable(atOne) || isReadable(atTwo));
  wire.mend();
  EXPECT_EQ(numbersFrom(kEvents, kEvents, atOne), kEvents);
  EXPECT_EQ(numbersFrom(0, kEvents, atTwo), kEvents);
}

}  // namespace
}  // namespace zntopo::test
