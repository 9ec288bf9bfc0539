// Events that no sender of ours would send, and more of them than anybody takes.

#include <stdexcept>
#include <vector>

#include "tests/notify/MemoryLimit.h"
#include "tests/notify/NotifySupport.h"

namespace zntopo::test {
namespace {

using testing::ElementsAre;

tvsnmp::EventVariable text(std::string value) {
  return {{1, 3}, tvsnmp::kTextType, 0, std::move(value)};
}
tvsnmp::EventVariable number(long value) { return {{1, 3}, tvsnmp::kIntegerType, value, ""}; }

class HostileEventsTest : public NotifyTest {};
ZNTOPO_ON_EVENT_MODES(HostileEventsTest);

/// What a consumer gets of an event with these variables, and what the cache's owner was asked for.
struct Outcome {
  std::string notification;
  std::vector<std::string> calls;
};

Outcome received(Consumer& consumer, unsigned event,
                 const std::vector<tvsnmp::EventVariable>& variables) {
  FakeCacheOwner::instance().reset();
  const OpenSession sender = openSession("");
  EXPECT_EQ(tvsnmp::sendEvent(sender.get(), {event, variables}), EventError::None);
  const std::string notification = consumer.next();
  return {notification, FakeCacheOwner::instance().calls()};
}

TEST_P(HostileEventsTest, WhatTooFewVariablesLeaveOutIsZeroOrEmpty) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    const Outcome status = received(consumer, 60001101, {});
    EXPECT_EQ(status.notification, "status NoStatus to NoStatus");
    EXPECT_THAT(status.calls, ElementsAre("updateCacheObjectStatus(NULL, 0, 0, 0, 0)"));
    const Outcome attribute = received(consumer, 60001102, {text(""), text("n")});
    EXPECT_EQ(attribute.notification, "attribute 0");
    EXPECT_THAT(attribute.calls, ElementsAre("updateCacheObjectAttribute(n, 0, 0, 0, NULL)"));
    EXPECT_EQ(received(consumer, 60001103, {text("")}).notification, "life cycle 0");
    const Outcome state = received(consumer, 60001104, {text("t")});
    EXPECT_EQ(state.notification, "state 0");
    EXPECT_THAT(state.calls, ElementsAre("clear()", "clear()"));
  });
}

TEST_P(HostileEventsTest, TooManyVariablesAreIgnored) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    std::vector<tvsnmp::EventVariable> variables = {text(""),  text("n"), text("marlo"), number(1),
                                                    number(5), number(0), number(3),     text(""),
                                                    text(""),  number(0)};
    for (int i = 0; i < 1000; ++i) variables.push_back(i % 2 == 0 ? number(i) : text("more"));
    const Outcome outcome = received(consumer, 60001102, variables);
    EXPECT_EQ(outcome.notification, "attribute 3");
    EXPECT_THAT(outcome.calls, ElementsAre("updateCacheObjectAttribute(n, 1, 5, 3, NULL)"));
  });
}

TEST_P(HostileEventsTest, VariablesOfAnotherTypeCountAsMissing) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    const Outcome outcome = received(consumer, 60001102,
                                     {number(1), number(2), number(3), text("1"), text("5"),
                                      text("0"), text("3"), number(4), number(5), text("6")});
    EXPECT_EQ(outcome.notification, "attribute 0");
    EXPECT_THAT(outcome.calls, ElementsAre("updateCacheObjectAttribute(NULL, 0, 0, 0, NULL)"));
  });
}

TEST_P(HostileEventsTest, AnOversizedTextIsCut) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    const Outcome outcome = received(
        consumer, 60001103, {text(""), text(std::string(59000, 'x')), text("marlo"), number(1)});
    EXPECT_EQ(outcome.notification, "life cycle 0");
    const Outcome status = received(consumer, 60001101,
                                    {text(""), text(std::string(59000, 'x')), text("marlo"),
                                     text("0"), number(1), number(5), number(1), number(5)});
    EXPECT_EQ(status.notification, "status Normal to Major");
    EXPECT_THAT(status.calls,
                ElementsAre("updateCacheObjectStatus(" + std::string(2047, 'x') + ", 1, 5, 0, 5)"));
  });
}

TEST_P(HostileEventsTest, AThreadInWhichSomethingThrowsTellsTheConsumerThatItEnds) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    ASSERT_EQ(consumer.send(attributeChange(1)), ZN_API_SUCCESS);
    ASSERT_EQ(consumer.next(), "attribute 1");
    FakeCacheOwner::instance().onCall([] { throw std::bad_alloc(); });
    ASSERT_EQ(consumer.send(attributeChange(2)), ZN_API_SUCCESS);
    EXPECT_EQ(consumer.next(), "error 45");
    EXPECT_TRUE(eventually([&] {
      return consumer.send(attributeChange(3)) == ZN_API_ATTR_NOTIF_GEN_ERROR;
    })) << "the session is closed, as behind any error";
  });
}

TEST_P(HostileEventsTest, SoItDoesWhileTheGuardIsHeld) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    // Emptying the cache is a part of decoding.
    FakeCacheOwner::instance().onCall([] { throw std::runtime_error("no cache"); });
    const OpenSession sender = openSession("");
    ASSERT_EQ(sendNumber(sender, 60001104, 0), EventError::None);
    EXPECT_EQ(consumer.next(), "error 45");
  });
}

TEST(StalledConsumerTest, CostsItsProcessNoMoreThanTheLimitAndGetsTheErrorBehindWhatFitted) {
  inFreshProcess([] {
    Carrier carrier(EventMode::Loop);
    Consumer consumer;
    const OpenSession sender = openSession("");
    const MemoryLimit limit;
    constexpr int kEvents = 8000;
    for (int i = 0; i < kEvents; ++i) {
      ASSERT_EQ(tvsnmp::sendEvent(sender.get(), {60001103,
                                                 {text(""), text(std::string(50000, 'x')),
                                                  text("marlo"), number(1), number(i)}}),
                EventError::None);
    }
    limit.expectKept();
    int count = 0;
    std::string last;
    while ((last = consumer.next()) == "life cycle " + std::to_string(count)) ++count;
    EXPECT_EQ(last, "error 45");
    EXPECT_GT(count, 2500);
    EXPECT_LT(count, kEvents);
    limit.expectKept();
  });
}

}  // namespace
}  // namespace zntopo::test
