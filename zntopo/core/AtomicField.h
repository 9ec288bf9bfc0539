#pragma once

#include <atomic>

namespace zntopo {

/// A field that one thread may change while others read it: it reads, assigns and copies like a
/// plain T and each access is atomic. T is a number, a truth value or an enumeration.
template <typename T>
class AtomicField {
 public:
  AtomicField(T value = T()) : value_(value) {}  // NOLINT(google-explicit-constructor)
  AtomicField(const AtomicField& other) : value_(other.get()) {}
  AtomicField& operator=(const AtomicField& other) { return *this = other.get(); }
  AtomicField& operator=(T value) {
    value_.store(value, std::memory_order_release);
    return *this;
  }

  operator T() const { return get(); }  // NOLINT(google-explicit-constructor)
  T get() const { return value_.load(std::memory_order_acquire); }

 private:
  std::atomic<T> value_;
};

}  // namespace zntopo
