// A broker that is killed, frozen or started again, as the consumer of events sees it.

#include <atomic>
#include <functional>
#include <thread>

#include "tests/notify/NotifySupport.h"

namespace zntopo::test {
namespace {

TEST(LostBrokerTest, TheConsumerGetsWhatCameAndThenTheError) {
  ZNTOPO_NEED_BROKER();
  inFreshProcess([] {
    Carrier carrier(EventMode::Broker);
    Consumer consumer;
    for (int i = 0; i < 100; ++i) ASSERT_EQ(consumer.send(attributeChange(i)), ZN_API_SUCCESS);
    for (int i = 0; i < 100; ++i) ASSERT_EQ(consumer.next(), "attribute " + std::to_string(i));
    carrier.broker().crash();
    EXPECT_EQ(consumer.next(), "error 45");
    EXPECT_EQ(consumer.send(attributeChange(1)), ZN_API_ATTR_NOTIF_GEN_ERROR);
  });
}

TEST(LostBrokerTest, ADeadConsumerHoldsNoSenderUp) {
  ZNTOPO_NEED_BROKER();
  inFreshProcess([] {
    Carrier carrier(EventMode::Broker);
    Consumer consumer;
    for (int i = 0; i < 3000; ++i) ASSERT_EQ(consumer.send(attributeChange(i)), ZN_API_SUCCESS);
    // What is still on its way when the broker dies does not come.
    ASSERT_TRUE(eventually([&] { return consumer.client().getNumberOfNotification() >= 1024; }));
    carrier.broker().crash();
    EXPECT_TRUE(eventually(
        [&] { return consumer.send(attributeChange(1)) == ZN_API_ATTR_NOTIF_GEN_ERROR; }));
    // The rest of what had come is there; the error is behind it.
    std::string text;
    int count = 0;
    while ((text = consumer.next()).rfind("attribute", 0) == 0) ++count;
    EXPECT_EQ(text, "error 45");
    EXPECT_GE(count, 1024);
  });
}

/// Sends numbers until a send fails, on a thread of its own.
class Sender {
 public:
  explicit Sender(TopologyNotificationClient& client)
      : thread_([this, &client] {
          while (client.sendNotification(attributeChange(sent_)).isOK()) ++sent_;
        }) {}
  ~Sender() { end(); }
  Sender(const Sender&) = delete;
  Sender& operator=(const Sender&) = delete;

  /// Waits until a send has failed; gives how many had not.
  int end() {
    if (thread_.joinable()) thread_.join();
    return sent_;
  }

 private:
  std::atomic<int> sent_{0};
  std::thread thread_;
};

/// Takes numbers from a first one on until something else comes; gives that.
std::string behindNumbers(Consumer& consumer, int& number) {
  for (;; ++number) {
    std::string text = consumer.next();
    if (text != "attribute " + std::to_string(number)) return text;
  }
}

/// Receives an ordered beginning of the events that flow until the broker is lost.
template <typename Lose>
void loseWhileEventsFlow(Consumer& consumer, Carrier& carrier, Lose lose) {
  Sender sender(consumer.client());
  int number = 0;
  for (; number < 200; ++number) {
    ASSERT_EQ(consumer.next(), "attribute " + std::to_string(number));
  }
  std::invoke(lose, carrier.broker());
  EXPECT_EQ(behindNumbers(consumer, number), "error 45");
  EXPECT_LE(number, sender.end());
}

TEST(LostBrokerTest, KilledWhileEventsFlowItLeavesAnOrderedBeginningOfThem) {
  ZNTOPO_NEED_BROKER();
  inFreshProcess([] {
    Carrier carrier(EventMode::Broker);
    Consumer consumer;
    loseWhileEventsFlow(consumer, carrier, &EventBroker::crash);
  });
}

TEST(LostBrokerTest, FrozenWhileEventsFlowItIsMissedAndTheCleanUpDoesNotHang) {
  ZNTOPO_NEED_BROKER();
  inFreshProcess([] {
    setEnv("TV_EVENT_KEEPALIVE", "5");
    Carrier carrier(EventMode::Broker);
    Consumer consumer;
    loseWhileEventsFlow(consumer, carrier, &EventBroker::freeze);
    clientFactory().doCleanup();
    EXPECT_EQ(consumer.next(), "shutdown 0");
  });
}

TEST(LostBrokerTest, ThawedInTimeItLosesNothing) {
  ZNTOPO_NEED_BROKER();
  inFreshProcess([] {
    Carrier carrier(EventMode::Broker);
    Consumer consumer;
    constexpr int kEvents = 3000;
    for (int i = 0; i < kEvents; ++i) {
      if (i == 1000) carrier.broker().freeze();
      ASSERT_EQ(consumer.send(attributeChange(i)), ZN_API_SUCCESS);
    }
    carrier.broker().thaw();
    for (int i = 0; i < kEvents; ++i) ASSERT_EQ(consumer.next(), "attribute " + std::to_string(i));
  });
}

TEST(LostBrokerTest, StartedAgainItDoesNotBringTheSessionBack) {
  ZNTOPO_NEED_BROKER();
  inFreshProcess([] {
    Carrier carrier(EventMode::Broker);
    Consumer consumer;
    carrier.broker().crash();
    EXPECT_EQ(consumer.next(), "error 45");
    carrier.broker().start();
    ZNTopoAPIStatus status;
    clientFactory().createNotificationClient(ALL, status);
    EXPECT_TRUE(status.isOK()) << "the session that was opened holds";
    EXPECT_EQ(consumer.send(attributeChange(1)), ZN_API_ATTR_NOTIF_GEN_ERROR);
    EXPECT_EQ(clientFactory().receiveNotification().getStatus(), ZN_API_NOTIFCHANNEL_DISCONNECTED);
    clientFactory().doCleanup();
    EXPECT_EQ(consumer.next(), "shutdown 0");
    EXPECT_EQ(consumer.client().getNumberOfNotification(), 0);
  });
}

}  // namespace
}  // namespace zntopo::test
