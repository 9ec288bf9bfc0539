#include <gtest/gtest.h>
#include <unistd.h>

#include <map>
#include <thread>
#include <vector>

#include "tests/platform/tvsnmp/SessionSupport.h"
#include "tests/support/EventBroker.h"

/// @file
/// What holds for every session, whatever carries the events.

namespace zntopo::test {
namespace {

class EventSessionTest : public EventModeFixture {};
ZNTOPO_ON_EVENT_MODES(EventSessionTest);

TEST_P(EventSessionTest, AnEventReachesEverySessionThatAskedForItTheSendersToo) {
  const OpenSession sender = openSession(kOneAndTwo);
  const OpenSession other = openSession(kTwo);
  ASSERT_TRUE(sender && other);
  ASSERT_EQ(sendNumber(sender, 60001102, 17), EventError::None);
  EXPECT_EQ(next(sender), "60001102: 17");
  EXPECT_EQ(next(other), "60001102: 17");
}

TEST_P(EventSessionTest, AnEventThatWasNotAskedForDoesNotCome) {
  const OpenSession sender = openSession("");
  const OpenSession receiver = openSession(kTwo);
  ASSERT_TRUE(sender && receiver);
  ASSERT_EQ(sendNumber(sender, 60001101, 1), EventError::None);
  ASSERT_EQ(sendNumber(sender, 60001102, 2), EventError::None);
  EXPECT_EQ(next(receiver), "60001102: 2");
}

TEST_P(EventSessionTest, TheOrderOfASenderHoldsAcrossItsEvents) {
  const OpenSession sender = openSession(nullptr);
  const OpenSession receiver = openSession(kOneAndTwo);
  ASSERT_TRUE(sender && receiver);
  for (int i = 0; i < 5000; ++i) {
    ASSERT_EQ(sendNumber(sender, 60001101U + static_cast<unsigned>(i % 2), i), EventError::None);
  }
  for (int i = 0; i < 5000; ++i) {
    ASSERT_EQ(next(receiver), std::to_string(60001101 + i % 2) + ": " + std::to_string(i));
  }
}

TEST_P(EventSessionTest, TheOrderOfEachOfSeveralSendersHolds) {
  const OpenSession receiver = openSession(kOneAndTwo);
  ASSERT_TRUE(receiver);
  constexpr int kEvents = 2000;
  std::vector<std::thread> threads;
  for (unsigned i = 0; i < 2; ++i) {
    threads.emplace_back([i] {
      const OpenSession sender = openSession("");
      ASSERT_TRUE(sender);
      for (int n = 0; n < kEvents; ++n) {
        ASSERT_EQ(sendNumber(sender, 60001101 + i, n), EventError::None);
      }
    });
  }
  std::map<TVsnmpArc, long> expected;
  for (int n = 0; n < 2 * kEvents; ++n) {
    const ReceivedPdu pdu = receive(receiver);
    ASSERT_TRUE(pdu) << described(pdu);
    const TVsnmpArc event = pdu->notify_oid[11];
    ASSERT_EQ(*pdu->variables->next_variable->val.integer, expected[event]++);
  }
  for (std::thread& thread : threads) thread.join();
}

TEST_P(EventSessionTest, AHundredThousandEventsWaitForASlowReceiver) {
  const OpenSession receiver = openSession(kTwo);
  const OpenSession sender = openSession("");
  ASSERT_TRUE(sender && receiver);
  constexpr int kEvents = 100000;
  for (int i = 0; i < kEvents; ++i) {
    ASSERT_EQ(sendNumber(sender, 60001102, i), EventError::None) << i;
  }
  for (int i = 0; i < kEvents; ++i) {
    ASSERT_EQ(next(receiver), "60001102: " + std::to_string(i));
  }
}

TEST_P(EventSessionTest, ThreadsMaySendOnOneSessionWhileItReceives) {
  const OpenSession session = openSession(kTwo);
  ASSERT_TRUE(session);
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&session] {
      for (int n = 0; n < 500; ++n) {
        ASSERT_EQ(sendNumber(session, 60001102, n), EventError::None);
      }
    });
  }
  for (int n = 0; n < 4 * 500; ++n) ASSERT_TRUE(receive(session));
  for (std::thread& thread : threads) thread.join();
}

TEST_P(EventSessionTest, WhatWasSentBeforeTheEndStillArrives) {
  const OpenSession receiver = openSession(kTwo);
  OpenSession sender = openSession("");
  ASSERT_TRUE(sender && receiver);
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(sendNumber(sender, 60001102, i), EventError::None);
  sender.reset();
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(next(receiver), "60001102: " + std::to_string(i));
}

TEST_P(EventSessionTest, ItsEndWakesWhoPollsACopyOfItsDescriptor) {
  OpenSession session = openSession(kTwo);
  ASSERT_TRUE(session);
  pollfd copy{dup(session->sock_fd), POLLIN, 0};
  std::thread waiting([&copy] { EXPECT_EQ(poll(&copy, 1, -1), 1); });
  session.reset();
  waiting.join();
  close(copy.fd);
}

TEST_P(EventSessionTest, TheDescriptorIsQuietUntilAnEventComes) {
  const OpenSession session = openSession(kTwo);
  ASSERT_TRUE(session);
  pollfd one{session->sock_fd, POLLIN, 0};
  EXPECT_EQ(poll(&one, 1, 0), 0);
  ASSERT_EQ(sendNumber(session, 60001102, 3), EventError::None);
  EXPECT_EQ(poll(&one, 1, -1), 1);
  EXPECT_EQ(next(session), "60001102: 3");
  EXPECT_EQ(poll(&one, 1, 0), 0);
}

TEST_P(EventSessionTest, AMalformedFilterIsRefused) {
  EXPECT_FALSE(openSession("60001101"));
  EXPECT_STREQ(TVsnmpErrString(TVsnmpErrno), "the filter names no event of this platform");
}

TEST_P(EventSessionTest, AnEventThatIsTooLargeIsRefusedAndTheSessionGoesOn) {
  const OpenSession session = openSession(kTwo);
  ASSERT_TRUE(session);
  const tvsnmp::EventVariable large{{1, 3}, tvsnmp::kTextType, 0, std::string(60000, 'x')};
  EXPECT_EQ(tvsnmp::sendEvent(session.get(), {60001102, {large}}), EventError::TooLarge);
  ASSERT_EQ(sendNumber(session, 60001102, 3), EventError::None);
  EXPECT_EQ(next(session), "60001102: 3");
}

TEST_P(EventSessionTest, WhatTheCallerHangsOnItStays) {
  int data = 0;
  const auto callback = [](int, SNMPSession*, SNMPPdu*, void*) {};
  const OpenSession session(TVsnmpEventOpen(nullptr, nullptr, callback, &data, nullptr));
  ASSERT_TRUE(session);
  EXPECT_EQ(session->callback_data, &data);
  EXPECT_EQ(session->callback, static_cast<TVsnmpCallback*>(callback));
  EXPECT_GE(session->sock_fd, 0);
}

TEST(NoSessionTest, DoesNothingAndSaysSo) {
  TVsnmpErrno = 0;
  EXPECT_EQ(TVsnmpRecv(nullptr), nullptr);
  EXPECT_STREQ(TVsnmpErrString(TVsnmpErrno), "there is no event session");
  EXPECT_EQ(sendNumber(nullptr, 60001101, 1), EventError::NoSession);
  TVsnmpClose(nullptr);
  TVsnmpFreePdu(nullptr);
}

}  // namespace
}  // namespace zntopo::test
