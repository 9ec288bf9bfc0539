#include "zntopo/platform/tvsnmp/detail/EventPipe.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <thread>

namespace {

using tvsnmp::EventError;
using tvsnmp::EventPipe;

bool isReadable(int descriptor, int milliseconds) {
  pollfd one{descriptor, POLLIN, 0};
  return poll(&one, 1, milliseconds) == 1;
}

TEST(EventPipeTest, EventsComeOutInTheirOrder) {
  EventPipe pipe;
  ASSERT_TRUE(pipe.open(true));
  for (int i = 0; i < 10000; ++i) pipe.append(std::to_string(i));
  std::string event;
  for (int i = 0; i < 10000; ++i) {
    ASSERT_EQ(pipe.receive(event), EventError::None);
    ASSERT_EQ(event, std::to_string(i));
  }
  EXPECT_FALSE(isReadable(pipe.descriptor(), 0));
}

TEST(EventPipeTest, AHundredThousandEventsWaitForAReceiverThatStands) {
  EventPipe pipe;
  ASSERT_TRUE(pipe.open(true));
  const std::string filling(300, 'x');
  for (int i = 0; i < 100000; ++i) pipe.append(filling + std::to_string(i));
  std::string event;
  for (int i = 0; i < 100000; ++i) {
    ASSERT_EQ(pipe.receive(event), EventError::None) << i;
    ASSERT_EQ(event.substr(300), std::to_string(i));
  }
}

TEST(EventPipeTest, BeyondItsBoundItEndsBehindTheLastThatFitted) {
  EventPipe pipe(1000000);
  ASSERT_TRUE(pipe.open(true));
  for (int i = 0; i < 50000; ++i) pipe.append(std::string(100, 'x') + std::to_string(i));
  std::string event;
  int count = 0;
  EventError error = EventError::None;
  while ((error = pipe.receive(event)) == EventError::None) {
    ASSERT_EQ(event.substr(100), std::to_string(count));
    ++count;
  }
  EXPECT_EQ(error, EventError::Overflow);
  EXPECT_GT(count, 1000);
  EXPECT_LT(count, 50000);
  pipe.append("late");
  EXPECT_EQ(pipe.receive(event), EventError::Overflow);
}

TEST(EventPipeTest, AFailureComesBehindWhatWasAppended) {
  EventPipe pipe;
  ASSERT_TRUE(pipe.open(true));
  pipe.append("one");
  pipe.fail(EventError::Lost);
  pipe.fail(EventError::Overflow);
  pipe.append("two");
  std::string event;
  EXPECT_EQ(pipe.receive(event), EventError::None);
  EXPECT_EQ(event, "one");
  EXPECT_EQ(pipe.receive(event), EventError::Lost);
  EXPECT_EQ(pipe.receive(event), EventError::Lost);
}

TEST(EventPipeTest, AFailureWakesWhoWaits) {
  for (const bool hasEvents : {true, false}) {
    EventPipe pipe;
    ASSERT_TRUE(pipe.open(hasEvents));
    std::thread other([&pipe] { pipe.fail(EventError::Lost); });
    EXPECT_TRUE(isReadable(pipe.descriptor(), -1));
    std::string event;
    EXPECT_EQ(pipe.receive(event), EventError::Lost);
    other.join();
  }
}

TEST(EventPipeTest, ItsEndWakesACopyOfItsDescriptor) {
  auto pipe = std::make_unique<EventPipe>();
  ASSERT_TRUE(pipe->open(true));
  const int copy = dup(pipe->descriptor());
  std::thread waiting([copy] { EXPECT_TRUE(isReadable(copy, -1)); });
  pipe.reset();
  waiting.join();
  close(copy);
}

TEST(EventPipeTest, ItEndsWhileMuchWaitsAndNobodyReceives) {
  EventPipe pipe;
  ASSERT_TRUE(pipe.open(true));
  for (int i = 0; i < 10000; ++i) pipe.append(std::string(1000, 'x'));
}

TEST(EventPipeTest, TheLargestEventPasses) {
  EventPipe pipe;
  ASSERT_TRUE(pipe.open(true));
  pipe.append(std::string(60000, 'x'));
  std::string event;
  EXPECT_EQ(pipe.receive(event), EventError::None);
  EXPECT_EQ(event, std::string(60000, 'x'));
}

}  // namespace
