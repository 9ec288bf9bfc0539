#pragma once

#include <atomic>
#include <functional>
#include <list>
#include <utility>

namespace zntopo {

/// A value that a read-only operation may fill in later, while references to it are out.
///
/// get() is safe at any time, and what it gives never changes and lives as long as this object:
/// a new value is built aside and published as a whole, and the values before it are kept. A
/// value that was published before is taken up again, so that going to and fro costs nothing.
/// publish() calls must not overlap: the caller holds a lock. edit() changes the current value
/// in place, for those who build an object that nobody shares yet.
template <typename T>
class Published {
 public:
  Published() = default;
  Published(const Published& other) {
    if (const T* const current = other.current_.load(std::memory_order_acquire)) assign(*current);
  }
  /// For an object that nobody shares; references to its values stay good.
  Published(Published&& other) noexcept
      : kept_(std::move(other.kept_)), current_(other.current_.exchange(nullptr)) {}
  Published& operator=(const Published& other) {
    if (this != &other) publish(other.get());
    return *this;
  }

  /// The current value; an empty one that is never destroyed before the first publish().
  const T& get() const {
    const T* const current = current_.load(std::memory_order_acquire);
    return current ? *current : nothing();
  }

  template <typename Same = std::equal_to<T>>
  void publish(T value, Same same = Same()) {
    for (const T& kept : kept_) {
      if (same(kept, value)) {
        current_.store(&kept, std::memory_order_release);
        return;
      }
    }
    assign(std::move(value));
  }

  T& edit() {
    if (!current_.load(std::memory_order_acquire)) assign(T());
    return const_cast<T&>(get());
  }

 private:
  static const T& nothing() {
    static const T* const empty = new T();
    return *empty;
  }

  void assign(T value) {
    kept_.push_back(std::move(value));
    current_.store(&kept_.back(), std::memory_order_release);
  }

  std::list<T> kept_;
  std::atomic<const T*> current_{nullptr};
};

}  // namespace zntopo
