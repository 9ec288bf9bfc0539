#include "zntopo/core/ZNMutex.h"

#include <memory>
#include <vector>

namespace zntopo {

namespace {

pthread_mutex_t* initialised(pthread_mutex_t* handle) {
  return pthread_mutex_init(handle, nullptr) == 0 ? handle : nullptr;
}

pthread_mutex_t* newHandle() {
  auto handle = std::make_unique<pthread_mutex_t>();
  return initialised(handle.get()) ? handle.release() : nullptr;
}

// Another thread may hold, or wait for, a platform mutex that an assignment puts out of use, so
// it is kept for the life of the process.
void keep(pthread_mutex_t* handle) {
  static pthread_mutex_t guard = PTHREAD_MUTEX_INITIALIZER;
  static auto& kept = *new std::vector<pthread_mutex_t*>();
  pthread_mutex_lock(&guard);
  kept.push_back(handle);
  pthread_mutex_unlock(&guard);
}

}  // namespace

ZNMutex::ZNMutex() : myMutex(initialised(&first_)) {}

ZNMutex::ZNMutex(const ZNMutex& /*other*/) : ZNMutex() {}

ZNMutex& ZNMutex::operator=(const ZNMutex& other) {
  if (this == &other) return *this;
  if (myMutex && myMutex != &first_) keep(myMutex);
  myMutex = newHandle();
  return *this;
}

ZNMutex::~ZNMutex() {
  if (!myMutex) return;
  pthread_mutex_destroy(myMutex);
  if (myMutex != &first_) delete myMutex;
}

// What the platform says of a failure here goes to nobody: these operations fail in silence.

ZNConditionVar::ZNConditionVar() { pthread_cond_init(&cv, nullptr); }

ZNConditionVar::~ZNConditionVar() { pthread_cond_destroy(&cv); }

void ZNConditionVar::broadcast() { pthread_cond_broadcast(&cv); }

void ZNConditionVar::signal_new() { pthread_cond_signal(&cv); }

void ZNConditionVar::wait(ZNMutex& mutex) {
  // Without a platform mutex there is nothing to wait with.
  if (mutex.getMutex()) pthread_cond_wait(&cv, mutex.getMutex());
}

}  // namespace zntopo
