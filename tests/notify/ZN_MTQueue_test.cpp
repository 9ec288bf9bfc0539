#include "zntopo/notify/ZN_MTQueue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "tests/notify/NotifySupport.h"

namespace zntopo::test {
namespace {

TEST(ZN_MTQueueTest, WhatGoesInFirstComesOutFirst) {
  ZN_MTQueue<int> queue(3);
  EXPECT_EQ(queue.getMaxQueueLength(), 3);
  for (const int i : {1, 2, 3}) queue.queue(i);
  EXPECT_EQ(queue.getCurrentQueueLength(), 3);
  for (const int i : {1, 2, 3}) EXPECT_EQ(queue.dequeue(), i);
  EXPECT_EQ(queue.getCurrentQueueLength(), 0);
}

TEST(ZN_MTQueueTest, AFullQueueMakesTheProducerWait) {
  ZN_MTQueue<int> queue(2);
  std::atomic<int> done{0};
  std::thread producer([&] {
    for (int i = 0; i < 3; ++i) {
      queue.queue(i);
      ++done;
    }
  });
  EXPECT_TRUE(eventually([&] { return done == 2; }));
  EXPECT_EQ(queue.getCurrentQueueLength(), 2);
  EXPECT_EQ(queue.dequeue(), 0);
  producer.join();
  EXPECT_EQ(done, 3);
  EXPECT_EQ(queue.getCurrentQueueLength(), 2);
}

TEST(ZN_MTQueueTest, AnEmptyQueueMakesTheConsumerWait) {
  ZN_MTQueue<int> queue(2);
  std::thread consumer([&] { EXPECT_EQ(queue.dequeue(), 7); });
  queue.queue(7);
  consumer.join();
}

TEST(ZN_MTQueueTest, WhatMayNotWaitGoesInBeyondTheBound) {
  ZN_MTQueue<int> queue(1);
  queue.queue(1);
  EXPECT_EQ(queue.async_queue(2), 2);
  EXPECT_EQ(queue.async_queue(3), 3);
  std::thread producer([&] { queue.queue(4); });
  for (const int i : {1, 2, 3, 4}) EXPECT_EQ(queue.dequeue(), i);
  producer.join();
}

TEST(ZN_MTQueueTest, SeveralProducersAndConsumersLoseNothing) {
  ZN_MTQueue<int> queue(5);
  std::atomic<int> sum{0};
  std::vector<std::thread> threads;
  for (int t = 0; t < 3; ++t) {
    threads.emplace_back([&] {
      for (int i = 1; i <= 1000; ++i) queue.queue(i);
    });
    threads.emplace_back([&] {
      for (int i = 1; i <= 1000; ++i) sum += queue.dequeue();
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(sum, 3 * 500500);
}

}  // namespace
}  // namespace zntopo::test
