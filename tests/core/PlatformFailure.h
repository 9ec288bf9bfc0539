#pragma once

namespace zntopo_test {

/// While one of these lives, the platform refuses to make a mutex.
class NoMutexes {
 public:
  NoMutexes();
  ~NoMutexes();
  NoMutexes(const NoMutexes&) = delete;
  NoMutexes& operator=(const NoMutexes&) = delete;
};

/// How often this thread has allocated memory.
unsigned long allocations();

}  // namespace zntopo_test
