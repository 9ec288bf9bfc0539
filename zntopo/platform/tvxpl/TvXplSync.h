#pragma once

#include <mutex>

/// @file
/// The platform's locks.

namespace TvXplSync {

/// A lock that is not re-entered. Its constructor is constexpr, so that it can be used before every
/// static object and after it.
class ThreadSync_t {
 public:
  constexpr ThreadSync_t() = default;
  void Lock() { mutex_.lock(); }
  void Unlock() { mutex_.unlock(); }

 private:
  std::mutex mutex_;
};

/// Holds a lock for a scope.
class Lock_t {
 public:
  explicit Lock_t(ThreadSync_t& sync) : sync_(sync) { sync_.Lock(); }
  ~Lock_t() { sync_.Unlock(); }
  Lock_t(const Lock_t&) = delete;
  Lock_t& operator=(const Lock_t&) = delete;

 private:
  ThreadSync_t& sync_;
};

}  // namespace TvXplSync
