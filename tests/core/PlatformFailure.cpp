#include "tests/core/PlatformFailure.h"

#include <errno.h>
#include <pthread.h>

#include <cstdlib>
#include <new>

namespace {

bool refused = false;
thread_local unsigned long count = 0;

}  // namespace

extern "C" int __real_pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* how);
extern "C" int __wrap_pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* how) {
  return refused ? EAGAIN : __real_pthread_mutex_init(mutex, how);
}

void* operator new(std::size_t size) {
  ++count;
  if (void* const memory = std::malloc(size ? size : 1)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace zntopo_test {

NoMutexes::NoMutexes() { refused = true; }
NoMutexes::~NoMutexes() { refused = false; }

unsigned long allocations() { return count; }

}  // namespace zntopo_test
