#include "tests/core/PlatformFailure.h"

#include <errno.h>
#include <pthread.h>

namespace {

bool refused = false;

}  // namespace

extern "C" int __real_pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* how);
extern "C" int __wrap_pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* how) {
  return refused ? EAGAIN : __real_pthread_mutex_init(mutex, how);
}

namespace zntopo::test {

NoMutexes::NoMutexes() { refused = true; }
NoMutexes::~NoMutexes() { refused = false; }

}  // namespace zntopo::test
