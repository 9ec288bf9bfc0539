#pragma once

#include <deque>
#include <utility>

#include "zntopo/core/ZNMutex.h"

namespace zntopo {

/// A bounded queue between threads. All operations may be called by several threads at once.
template <typename T>
class ZN_MTQueue {
 public:
  explicit ZN_MTQueue(int maxQueueSize) : d_maxQueueSize(maxQueueSize), d_numInQueue(0) {}
  ZN_MTQueue(const ZN_MTQueue&) = delete;
  ZN_MTQueue& operator=(const ZN_MTQueue&) = delete;

  int getMaxQueueLength() const { return d_maxQueueSize; }
  int getCurrentQueueLength() const {
    const MutexLockInternal hold(mutex);
    return d_numInQueue;
  }

  /// Appends an element; waits while the queue is full.
  void queue(T element) {
    const MutexLockInternal hold(mutex);
    while (d_numInQueue >= d_maxQueueSize) d_notFull.wait(mutex);
    append(std::move(element));
  }
  /// Appends an element beyond the bound, too, and never waits. Returns how many there are now.
  int async_queue(T element) {
    const MutexLockInternal hold(mutex);
    append(std::move(element));
    return d_numInQueue;
  }
  /// Takes the oldest element; waits while there is none.
  T dequeue() {
    const MutexLockInternal hold(mutex);
    while (d_numInQueue == 0) d_notEmpty.wait(mutex);
    --d_numInQueue;
    T front = std::move(d_queue.front());
    d_queue.pop_front();
    d_notFull.signal_new();
    return front;
  }

 private:
  void append(T element) {
    ++d_numInQueue;
    d_queue.push_back(std::move(element));
    d_notEmpty.signal_new();
  }

  const int d_maxQueueSize;
  int d_numInQueue;
  ZNConditionVar d_notEmpty;
  ZNConditionVar d_notFull;
  mutable ZNMutex mutex;
  std::deque<T> d_queue;
};

}  // namespace zntopo
