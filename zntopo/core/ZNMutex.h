#pragma once

#include <pthread.h>

#include "zntopo/platform/Export.h"

namespace zntopo {

/// A non-recursive lock. A copy has a platform mutex of its own and shares nothing.
class ZNTOPO_EXPORT ZNMutex {
 public:
  /// Declared for callers that name it; no constructor takes it.
  enum MutexMode : int { RECURSIVE = 0, NONRECURSIVE = 1 };

  ZNMutex();
  ZNMutex(const ZNMutex& other);
  /// Makes a new platform mutex. The old one is left alive, for a thread that may hold it.
  ZNMutex& operator=(const ZNMutex& other);
  ~ZNMutex();

  /// Blocks until the lock is held. Does nothing if the platform gave no mutex.
  void lock() {
    if (myMutex) pthread_mutex_lock(myMutex);
  }
  void unlock() {
    if (myMutex) pthread_mutex_unlock(myMutex);
  }
  /// The platform handle, for callers that go straight to the platform's lock functions.
  pthread_mutex_t* getMutex() const { return myMutex; }

 private:
  // The handle points to this one until another mutex is assigned.
  pthread_mutex_t first_;
  pthread_mutex_t* myMutex;
};

/// Holds a ZNMutex for a scope; a null pointer holds nothing.
class MutexLockInternal {
 public:
  explicit MutexLockInternal(ZNMutex& mutex) : MutexLockInternal(&mutex) {}
  explicit MutexLockInternal(ZNMutex* mutex) : _pM(mutex) {
    if (_pM) _pM->lock();
  }
  ~MutexLockInternal() {
    if (_pM) _pM->unlock();
  }
  MutexLockInternal(const MutexLockInternal&) = delete;

 private:
  MutexLockInternal& operator=(const MutexLockInternal&) = delete;

  ZNMutex* _pM;
};

/// A condition variable. Its failures are silent.
class ZNTOPO_EXPORT ZNConditionVar {
 public:
  ZNConditionVar();
  ~ZNConditionVar();
  ZNConditionVar(const ZNConditionVar&) = delete;
  ZNConditionVar& operator=(const ZNConditionVar&) = delete;

  void broadcast();
  void signal_new();
  /// Waits with the mutex held by the caller. It may wake without a signal, so the caller tests
  /// its condition anew.
  void wait(ZNMutex& mutex);

 private:
  pthread_cond_t cv;
};

}  // namespace zntopo
