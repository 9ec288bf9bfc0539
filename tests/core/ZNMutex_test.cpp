#include "zntopo/core/ZNMutex.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <type_traits>
#include <vector>

#include "tests/core/PlatformFailure.h"

using zntopo::MutexLockInternal;
using zntopo::ZNConditionVar;
using zntopo::ZNMutex;
using zntopo_test::NoMutexes;

namespace {

bool isHeld(ZNMutex& mutex) {
  bool held = false;
  std::thread([&] {
    held = pthread_mutex_trylock(mutex.getMutex()) != 0;
    if (!held) pthread_mutex_unlock(mutex.getMutex());
  }).join();
  return held;
}

}  // namespace

TEST(ZNMutexTest, LocksAndUnlocks) {
  ZNMutex mutex;
  EXPECT_FALSE(isHeld(mutex));
  mutex.lock();
  EXPECT_TRUE(isHeld(mutex));
  mutex.unlock();
  EXPECT_FALSE(isHeld(mutex));
}

TEST(ZNMutexTest, ACopySharesNothing) {
  ZNMutex mutex;
  mutex.lock();
  ZNMutex copy(mutex);
  EXPECT_NE(copy.getMutex(), mutex.getMutex());
  EXPECT_FALSE(isHeld(copy));
  mutex.unlock();
}

TEST(ZNMutexTest, AssignmentMakesANewMutexAndLeavesTheOldOneAlive) {
  ZNMutex mutex;
  const ZNMutex other;
  pthread_mutex_t* const before = mutex.getMutex();
  mutex.lock();
  mutex = other;
  EXPECT_NE(mutex.getMutex(), before);
  EXPECT_NE(mutex.getMutex(), other.getMutex());
  EXPECT_FALSE(isHeld(mutex));
  EXPECT_EQ(pthread_mutex_unlock(before), 0);
}

TEST(ZNMutexTest, AssignmentToItselfDoesNothing) {
  ZNMutex mutex;
  pthread_mutex_t* const before = mutex.getMutex();
  const ZNMutex& alias = mutex;
  mutex = alias;
  EXPECT_EQ(mutex.getMutex(), before);
}

TEST(ZNMutexTest, WithoutAPlatformMutexNothingIsDone) {
  const NoMutexes refused;
  ZNMutex mutex;
  EXPECT_EQ(mutex.getMutex(), nullptr);
  mutex.lock();
  mutex.lock();
  mutex.unlock();
  ZNMutex copy(mutex);
  EXPECT_EQ(copy.getMutex(), nullptr);
  ZNConditionVar().wait(mutex);
}

TEST(ZNMutexTest, AnAssignmentCanGiveAMutexToOneThatHasNone) {
  ZNMutex mutex = [] {
    const NoMutexes refused;
    return ZNMutex();
  }();
  EXPECT_EQ(mutex.getMutex(), nullptr);
  mutex = ZNMutex();
  EXPECT_NE(mutex.getMutex(), nullptr);
}

TEST(MutexLockInternalTest, HoldsTheMutexForItsScope) {
  ZNMutex mutex;
  {
    const MutexLockInternal hold(mutex);
    EXPECT_TRUE(isHeld(mutex));
  }
  EXPECT_FALSE(isHeld(mutex));
  {
    const MutexLockInternal hold(&mutex);
    EXPECT_TRUE(isHeld(mutex));
  }
  EXPECT_FALSE(isHeld(mutex));
  const MutexLockInternal nothing(nullptr);
}

TEST(MutexLockInternalTest, IsNotAssignable) {
  EXPECT_FALSE(std::is_copy_assignable_v<MutexLockInternal>);
}

TEST(ZNConditionVarTest, SignalWakesOneThatWaits) {
  ZNMutex mutex;
  ZNConditionVar changed;
  bool ready = false;
  std::thread waiter([&] {
    const MutexLockInternal hold(mutex);
    while (!ready) changed.wait(mutex);
  });
  {
    const MutexLockInternal hold(mutex);
    ready = true;
  }
  changed.signal_new();
  waiter.join();
  EXPECT_TRUE(ready);
}

TEST(ZNConditionVarTest, BroadcastWakesAll) {
  ZNMutex mutex;
  ZNConditionVar changed;
  bool ready = false;
  std::atomic<int> woken{0};
  std::vector<std::thread> waiters;
  for (int i = 0; i < 3; ++i) {
    waiters.emplace_back([&] {
      const MutexLockInternal hold(mutex);
      while (!ready) changed.wait(mutex);
      ++woken;
    });
  }
  {
    const MutexLockInternal hold(mutex);
    ready = true;
  }
  changed.broadcast();
  for (auto& waiter : waiters) waiter.join();
  EXPECT_EQ(woken, 3);
}
