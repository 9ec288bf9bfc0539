#include <pthread.h>

#include <atomic>
#include <cerrno>

#include "tests/notify/NotifySupport.h"

namespace {

std::atomic<int> createResult{0};
std::atomic<int> detachResult{0};

}  // namespace

extern "C" {

// What the library calls instead of the platform's: the real call, unless a test lets it fail.
int __real_pthread_create(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
int __real_pthread_detach(pthread_t);

int __wrap_pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*body)(void*),
                          void* argument) {
  if (createResult != 0) return createResult;
  return __real_pthread_create(thread, attributes, body, argument);
}

int __wrap_pthread_detach(pthread_t thread) {
  const int result = __real_pthread_detach(thread);
  return detachResult != 0 ? detachResult.load() : result;
}
}

namespace zntopo::test {
namespace {

TEST(ThreadFailureTest, AThreadThatCannotStartIsToldAndLeavesTheSession) {
  inFreshProcess([] {
    unsetenv("TV_EVENT_BROKER");
    ZNTopoAPIStatus status;
    const auto client = clientFactory().createNotificationClient(ALL, status);
    createResult = EAGAIN;
    EXPECT_EQ(clientFactory().receiveNotification().getStatus(), ZN_API_THREAD_CREATE_FAILED);
    createResult = 0;
    Consumer consumer;
    EXPECT_EQ(consumer.send(attributeChange(1)), ZN_API_SUCCESS);
    EXPECT_EQ(consumer.next(), "attribute 1");
  });
}

TEST(ThreadFailureTest, AThreadThatCannotBeDetachedIsToldAndRunsOn) {
  inFreshProcess([] {
    unsetenv("TV_EVENT_BROKER");
    ZNTopoAPIStatus status;
    const auto client = clientFactory().createNotificationClient(ALL, status);
    detachResult = EINVAL;
    EXPECT_EQ(clientFactory().receiveNotification().getStatus(), ZN_API_THREAD_DETACH_FAILED);
    ASSERT_TRUE(client->sendNotification(attributeChange(1)).isOK());
    EXPECT_EQ(described(client->getNextNotification()), "attribute 1");
    clientFactory().doCleanup();
    EXPECT_EQ(described(client->getNextNotification()), "shutdown 0");
    EXPECT_EQ(described(client->getNextNotification()), "error 45");
  });
}

}  // namespace
}  // namespace zntopo::test
