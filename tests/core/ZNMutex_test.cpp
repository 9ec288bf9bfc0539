#include "zntopo/core/ZNMutex.h"

#include <gtest/gtest.h>

#include <thread>
#include <type_traits>
#include <vector>

#include "tests/core/PlatformFailure.h"

using zntopo::MutexLockInternal;
using zntopo::ZNConditionVar;
using zntopo::ZNMutex;
using zntopo::test::NoMutexes;

namespace {

bool isHeld(ZNMutex& mutex) {
  bool held = false;
  std::thread([&] {
    held = pthread_mutex_trylock(mutex.getMutex()) != 0;
    if (!held) pthread_mutex_unlock(mutex.getMutex());
  }).join();
  return held;
}

// Threads that wait for a change, each of which has begun to wait when start() comes back.
class Waiters {
 public:
  void start(int number) {
    for (int i = 0; i < number; ++i) threads_.emplace_back([this] { wait(); });
    while (countWaiting() < number) std::this_thread::yield();
  }
  void change() {
    const MutexLockInternal hold(mutex_);
    ready_ = true;
  }
  // Comes back when each of them has been woken.
  void join() {
    for (auto& thread : threads_) thread.join();
  }

  ZNConditionVar changed;

 private:
  void wait() {
    const MutexLockInternal hold(mutex_);
    // Seen by others only when the wait has let go of the mutex.
    ++waiting_;
    while (!ready_) changed.wait(mutex_);
  }
  int countWaiting() {
    const MutexLockInternal hold(mutex_);
    return waiting_;
  }

  ZNMutex mutex_;
  bool ready_ = false;
  int waiting_ = 0;
  std::vector<std::thread> threads_;
};

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

// Without the wake-up these would never end.

TEST(ZNConditionVarTest, SignalWakesOneThatWaits) {
  Waiters waiters;
  waiters.start(1);
  waiters.change();
  waiters.changed.signal_new();
  waiters.join();
}

TEST(ZNConditionVarTest, BroadcastWakesAll) {
  Waiters waiters;
  waiters.start(3);
  waiters.change();
  waiters.changed.broadcast();
  waiters.join();
}
