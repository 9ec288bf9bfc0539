#pragma once

namespace zntopo::test {

/// While one of these lives, the platform refuses to make a mutex.
class NoMutexes {
 public:
  NoMutexes();
  ~NoMutexes();
  NoMutexes(const NoMutexes&) = delete;
  NoMutexes& operator=(const NoMutexes&) = delete;
};

}  // namespace zntopo::test
