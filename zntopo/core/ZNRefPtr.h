#pragma once

#include <atomic>

#include "zntopo/core/ZNMutex.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

template <typename T>
class ZNRefPtr;

/// The count that all handles of one object share. Several threads may count at once.
class RefCounter {
 public:
  explicit RefCounter(unsigned start) : myCount(start) {}
  void inc() { myCount.fetch_add(1, std::memory_order_relaxed); }
  void dec() { drop(); }
  bool isZero() const { return myCount.load(std::memory_order_acquire) == 0; }

 private:
  template <typename T>
  friend class ZNRefPtr;
  struct WithMutex;

  RefCounter(unsigned start, bool hasMutex) : myCount(start), hasMutex_(hasMutex) {}
  /// True for the one who takes the count to zero.
  bool drop() { return myCount.fetch_sub(1, std::memory_order_acq_rel) == 1; }

  std::atomic<unsigned> myCount;
  const bool hasMutex_ = false;
};

/// Count and mutex in one piece, as a handle makes them for an object.
struct RefCounter::WithMutex : RefCounter {
  WithMutex() : RefCounter(1, true) {}
  ZNMutex mutex;
};

/// A reference-counted handle. Handles converted to another static type share one count, so an
/// object dies with the last of them, whatever their types.
///
/// Only the count is safe: two threads must not assign to one handle at once, and the object
/// itself is shared by reference between all threads that hold a handle to it.
template <typename T>
class ZNRefPtr {
 public:
  using element_type = T;

  ZNRefPtr() : myPtr(nullptr), myCounter(nullptr), myMutex(nullptr) {}
  /// Takes ownership of an object made with new; null gives a null handle.
  ZNRefPtr(T* p) : ZNRefPtr() {  // NOLINT(google-explicit-constructor)
    if (!p) return;
    auto* const count = new RefCounter::WithMutex();
    myPtr = p;
    myCounter = count;
    myMutex = &count->mutex;
  }
  /// Shares the count of another handle. A null argument gives a null handle.
  ZNRefPtr(RefCounter* counter, ZNMutex* mutex, T* p) : ZNRefPtr() {
    if (counter && mutex && p) acquire(p, counter, mutex);
  }
  ZNRefPtr(const ZNRefPtr& other) : ZNRefPtr() {
    acquire(other.myPtr, other.myCounter, other.myMutex);
  }
  ZNRefPtr(ZNRefPtr&& other) noexcept
      : myPtr(other.myPtr), myCounter(other.myCounter), myMutex(other.myMutex) {
    other.forget();
  }
  ~ZNRefPtr() { release(); }

  ZNRefPtr& operator=(const ZNRefPtr& other) {
    // The copy acquires before the old object is released: what is assigned may hang on it.
    ZNRefPtr kept(other);
    swap(kept);
    return *this;
  }
  ZNRefPtr& operator=(ZNRefPtr&& other) noexcept {
    ZNRefPtr kept(static_cast<ZNRefPtr&&>(other));
    swap(kept);
    return *this;
  }

  T& operator*() const { return *myPtr; }
  T* operator->() const { return myPtr; }
  bool isNull() const { return !myCounter || !myPtr || !myMutex; }
  RefCounter* getCounter() const { return myCounter; }
  ZNMutex* getMutex() const { return myMutex; }
  T* getObjectPointer() const { return myPtr; }

  /// Handles compare by the object that they point to.
  bool operator==(const ZNRefPtr& other) const { return myPtr == other.myPtr; }
  bool equals(const ZNRefPtr& other) const { return myPtr == other.myPtr; }
  bool operator<(const ZNRefPtr& other) const { return myPtr < other.myPtr; }
  bool operator>(const ZNRefPtr& other) const { return other < *this; }

 private:
  void acquire(T* p, RefCounter* counter, ZNMutex* mutex) {
    myPtr = p;
    myCounter = counter;
    myMutex = mutex;
    if (myMutex && myCounter) myCounter->inc();
  }

  void release() {
    if (myMutex && myCounter && myCounter->drop()) destroy();
    forget();
  }

  /// The object's destructor runs under the handle's mutex.
  void destroy() {
    myMutex->lock();
    delete myPtr;
    if (myCounter->hasMutex_) {
      myMutex->unlock();
      delete static_cast<RefCounter::WithMutex*>(myCounter);
      return;
    }
    delete myCounter;
    myMutex->unlock();
    delete myMutex;
  }

  void forget() {
    myPtr = nullptr;
    myCounter = nullptr;
    myMutex = nullptr;
  }

  void swap(ZNRefPtr& other) noexcept {
    T* const p = myPtr;
    RefCounter* const counter = myCounter;
    ZNMutex* const mutex = myMutex;
    myPtr = other.myPtr;
    myCounter = other.myCounter;
    myMutex = other.myMutex;
    other.myPtr = p;
    other.myCounter = counter;
    other.myMutex = mutex;
  }

  T* myPtr;
  RefCounter* myCounter;
  ZNMutex* myMutex;
};

}  // namespace zntopo
