#include <signal.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <vector>

#include "tests/notify/MemoryLimit.h"
#include "tests/notify/NotifySupport.h"

namespace zntopo::test {
namespace {

class ReceiverTest : public NotifyTest {};
ZNTOPO_ON_EVENT_MODES(ReceiverTest);

std::size_t cacheCalls() { return FakeCacheOwner::instance().calls().size(); }

TEST_P(ReceiverTest, EventsComeInTheirOrderAndChangeTheCache) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    for (int i = 0; i < 500; ++i) ASSERT_EQ(consumer.send(attributeChange(i)), ZN_API_SUCCESS);
    for (int i = 0; i < 500; ++i) ASSERT_EQ(consumer.next(), "attribute " + std::to_string(i));
    const auto calls = FakeCacheOwner::instance().calls();
    ASSERT_EQ(calls.size(), 500U);
    EXPECT_EQ(calls[499], "updateCacheObjectAttribute(node-1, 1, 5, 499, NULL)");
  });
}

TEST_P(ReceiverTest, TheCacheIsChangedBeforeTheConsumerSeesTheEvent) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    std::atomic<int> waitingThen{-1};
    FakeCacheOwner::instance().onCall(
        [&] { waitingThen = consumer.client().getNumberOfNotification(); });
    ASSERT_EQ(consumer.send(attributeChange(1)), ZN_API_SUCCESS);
    EXPECT_EQ(consumer.next(), "attribute 1");
    EXPECT_EQ(waitingThen, 0);
  });
}

TEST_P(ReceiverTest, AReadyTopologyClearsTheCacheTwice) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    ASSERT_EQ(consumer.send(new TopologyStateNotification(E_Unknown, TopologyStateNotif, ObjID(),
                                                          TOPOLOGY_READY, 0, 0, 0, Full_Discovery)),
              ZN_API_SUCCESS);
    EXPECT_EQ(consumer.next(), "state 0");
    EXPECT_THAT(FakeCacheOwner::instance().calls(), testing::ElementsAre("clear()", "clear()"));
  });
}

TEST_P(ReceiverTest, ALifeCycleEventDoesNoHarmAndReachesTheConsumer) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    ASSERT_EQ(
        consumer.send(new TopologyLifeCycleNotification(E_Node, LifeCycleNotif, ObjID("n"), 9)),
        ZN_API_SUCCESS);
    EXPECT_EQ(consumer.next(), "life cycle 9");
    EXPECT_EQ(cacheCalls(), 0U);
  });
}

TEST_P(ReceiverTest, ARefusedEventIsSkipped) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    const OpenSession other = openSession("");
    const tvsnmp::EventVariable attribute{{1, 3}, tvsnmp::kIntegerType, 50, ""};
    const tvsnmp::EventVariable text{{1, 3}, tvsnmp::kTextType, 0, "x"};
    ASSERT_EQ(tvsnmp::sendEvent(other.get(), {60001102, {text, text, text, attribute, attribute}}),
              EventError::None);
    ASSERT_EQ(sendNumber(other, 60001103, 1), EventError::None);
    EXPECT_EQ(consumer.next(), "life cycle 0");
    EXPECT_EQ(cacheCalls(), 0U);
  });
}

TEST_P(ReceiverTest, TheEventThatDoesNotFitIntoTheQueueHoldsTheThreadUntilOneIsTaken) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    constexpr int kEvents = 1100;
    for (int i = 0; i < kEvents; ++i) ASSERT_EQ(consumer.send(attributeChange(i)), ZN_API_SUCCESS);
    // The 1025th has changed the cache and waits for room.
    EXPECT_TRUE(eventually([] { return cacheCalls() == 1025; }));
    EXPECT_EQ(consumer.client().getNumberOfNotification(), 1024);
    EXPECT_EQ(consumer.next(), "attribute 0");
    EXPECT_TRUE(eventually([] { return cacheCalls() == 1026; }));
    EXPECT_EQ(consumer.client().getNumberOfNotification(), 1024);
    for (int i = 1; i < kEvents; ++i) ASSERT_EQ(consumer.next(), "attribute " + std::to_string(i));
  });
}

TEST_P(ReceiverTest, AShutdownGoesIntoAFullQueue) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    for (int i = 0; i < 1100; ++i) ASSERT_EQ(consumer.send(attributeChange(i)), ZN_API_SUCCESS);
    EXPECT_TRUE(eventually([] { return cacheCalls() == 1025; }));
    clientFactory().doCleanup();
    EXPECT_EQ(consumer.client().getNumberOfNotification(), 1025);
    for (int i = 0; i < 1024; ++i) ASSERT_EQ(consumer.next(), "attribute " + std::to_string(i));
    EXPECT_EQ(consumer.next(), "shutdown 0");
    EXPECT_EQ(consumer.next(), "attribute 1024");
    EXPECT_EQ(consumer.next(), "error 45");
  });
}

TEST_P(ReceiverTest, SendersAreNotShutOutWhileTheThreadWaitsForRoom) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    constexpr int kEvents = 20000;
    for (int i = 0; i < kEvents; ++i) ASSERT_EQ(consumer.send(attributeChange(i)), ZN_API_SUCCESS);
    for (int i = 0; i < kEvents; ++i) ASSERT_EQ(consumer.next(), "attribute " + std::to_string(i));
  });
}

TEST_P(ReceiverTest, ASecondThreadSharesTheEventsWithTheFirst) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    ASSERT_TRUE(clientFactory().receiveNotification().isOK());
    constexpr int kEvents = 2000;
    for (int i = 0; i < kEvents; ++i) ASSERT_EQ(consumer.send(attributeChange(i)), ZN_API_SUCCESS);
    std::set<std::string> all;
    for (int i = 0; i < kEvents; ++i) EXPECT_TRUE(all.insert(consumer.next()).second);
    EXPECT_TRUE(all.contains("attribute 0"));
    EXPECT_TRUE(all.contains("attribute 1999"));
    clientFactory().doCleanup();
    // Each of the two tells of the end.
    EXPECT_EQ(consumer.next(), "shutdown 0");
    EXPECT_EQ(consumer.next(), "error 45");
    EXPECT_EQ(consumer.next(), "error 45");
  });
}

/// The other threads of this process.
std::vector<int> otherThreads() {
  std::vector<int> ids;
  for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
    const int id = std::stoi(task.path().filename());
    if (id != gettid()) ids.push_back(id);
  }
  return ids;
}

/// Interrupts threads with a signal that has a handler.
void interrupt(const std::vector<int>& threads) {
  struct sigaction action {};
  action.sa_handler = [](int) {};
  sigaction(SIGUSR1, &action, nullptr);
  ASSERT_FALSE(threads.empty());
  for (const int id : threads) ASSERT_EQ(syscall(SYS_tgkill, getpid(), id, SIGUSR1), 0);
}

TEST_P(ReceiverTest, AnInterruptedWaitGoesOn) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    const std::vector<int> threads = otherThreads();
    for (int i = 0; i < 50; ++i) {
      interrupt(threads);
      ASSERT_EQ(consumer.send(attributeChange(i)), ZN_API_SUCCESS);
      ASSERT_EQ(consumer.next(), "attribute " + std::to_string(i));
    }
  });
}

TEST_P(ReceiverTest, AHundredThousandEventsReachASlowConsumerInTheirOrderAndInLittleMemory) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    Consumer consumer;
    const MemoryLimit limit;
    constexpr int kEvents = 100000;
    for (int i = 0; i < kEvents; ++i) ASSERT_EQ(consumer.send(attributeChange(i)), ZN_API_SUCCESS);
    for (int i = 0; i < kEvents; ++i) ASSERT_EQ(consumer.next(), "attribute " + std::to_string(i));
    limit.expectKept();
  });
}

TEST_P(ReceiverTest, ASessionMayEndWhileItsThreadReceives) {
  inFreshProcess([mode = GetParam()] {
    Carrier carrier(mode);
    TopologyNotificationClient client;
    for (int i = 0; i < 20; ++i) {
      auto session = std::make_unique<TopologySession>(nullptr, "test", nullptr, nullptr, kTwo);
      ASSERT_TRUE(session->createBlockingRecvThrd().isOK());
      if (i % 2 == 0) session->closeSession();
      session.reset();
      EXPECT_EQ(described(client.getNextNotification()), "error 45");
    }
  });
}

}  // namespace
}  // namespace zntopo::test
