#pragma once

#include "zntopo/core/ZNMutex.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// The count that all handles of one object share. It has no lock of its own.
class RefCounter {
 public:
  explicit RefCounter(unsigned start) : myCount(start) {}
  void inc() { ++myCount; }
  void dec() { --myCount; }
  bool isZero() const { return myCount == 0; }

 private:
  unsigned myCount;
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

  /// Takes ownership of an object made with new; null gives a null handle.
  ZNRefPtr(T* p = nullptr)  // NOLINT(google-explicit-constructor)
      : myPtr(p),
        myCounter(p ? new RefCounter(1) : nullptr),
        myMutex(p ? new ZNMutex() : nullptr) {}
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
    if (!myMutex) return;
    myMutex->lock();
    if (myCounter) myCounter->inc();
    myMutex->unlock();
  }

  void release() {
    if (myMutex && myCounter) {
      myMutex->lock();
      myCounter->dec();
      const bool last = myCounter->isZero();
      if (last) {
        delete myPtr;
        delete myCounter;
      }
      myMutex->unlock();
      if (last) delete myMutex;
    }
    forget();
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
