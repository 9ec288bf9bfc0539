#include <poll.h>
#include <pthread.h>
#include <sys/resource.h>

#include <atomic>
#include <cerrno>

#include "tests/notify/NotifySupport.h"
#include "tests/notify/TracedTexts.h"
#include "zntopo/notify/detail/Receiver.h"

namespace {

std::atomic<int> createResult{0};
std::atomic<int> detachResult{0};
std::atomic<int> stackSizeResult{0};
/// The stack that the last thread was to have, and whether it was told to be detached.
std::atomic<std::size_t> stackOfThread{0};
std::atomic<int> detached{0};
/// Every wait for one descriptor ends at once, and every look at one meets a signal.
std::atomic<bool> isInterrupted{false};
std::atomic<int> looks{0};
/// Every wait for one descriptor fails with this.
std::atomic<int> waitError{0};

}  // namespace

extern "C" {

// What the library calls instead of the platform's: the real call, unless a test lets it fail.
int __real_pthread_create(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
int __real_pthread_detach(pthread_t);
int __real_pthread_attr_setstacksize(pthread_attr_t*, std::size_t);
int __real_poll(pollfd*, nfds_t, int);

int __wrap_pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*body)(void*),
                          void* argument) {
  if (createResult != 0) return createResult;
  std::size_t stack = 0;
  if (attributes != nullptr) pthread_attr_getstacksize(attributes, &stack);
  stackOfThread = stack;
  return __real_pthread_create(thread, attributes, body, argument);
}

int __wrap_pthread_detach(pthread_t thread) {
  const int result = __real_pthread_detach(thread);
  ++detached;
  return detachResult != 0 ? detachResult.load() : result;
}

int __wrap_pthread_attr_setstacksize(pthread_attr_t* attributes, std::size_t size) {
  if (stackSizeResult != 0) return stackSizeResult;
  return __real_pthread_attr_setstacksize(attributes, size);
}

int __wrap_poll(pollfd* descriptors, nfds_t count, int milliseconds) {
  if (waitError != 0 && count == 1 && milliseconds < 0) {
    errno = waitError;
    return -1;
  }
  if (!isInterrupted || count != 1) return __real_poll(descriptors, count, milliseconds);
  if (milliseconds != 0) return 1;
  ++looks;
  errno = EINTR;
  return -1;
}
}

namespace zntopo::test {
namespace {

TEST(ReceivingThreadTest, HasAStackOf64KilobytesAndIsDetached) {
  inFreshProcess([] {
    unsetenv("TV_EVENT_BROKER");
    const Consumer consumer;
    if (detail::kIsSanitized) {
      EXPECT_GE(stackOfThread, 65'536U) << "a sanitizer needs more";
    } else {
      EXPECT_EQ(stackOfThread, 65'536U);
    }
    EXPECT_EQ(detached, 1);
  });
}

TEST(ThreadFailureTest, AThreadThatCannotStartIsToldAndLeavesTheSession) {
  inFreshProcess([] {
    unsetenv("TV_EVENT_BROKER");
    const Scratch scratch;
    setEnv("TV_TRACE", scratch.path("trace"));
    ZNTopoAPIStatus status;
    const auto client = clientFactory().createNotificationClient(ALL, status);
    createResult = EAGAIN;
    EXPECT_EQ(clientFactory().receiveNotification().getStatus(), ZN_API_THREAD_CREATE_FAILED);
    createResult = 0;
    EXPECT_THAT(
        tracedTexts(scratch.read("trace"), 4),
        testing::ElementsAre("The pthread_create() returns 11: Resource temporarily unavailable"));
    Consumer consumer;
    EXPECT_EQ(consumer.send(attributeChange(1)), ZN_API_SUCCESS);
    EXPECT_EQ(consumer.next(), "attribute 1");
  });
}

TEST(ThreadFailureTest, AThreadThatCannotBeDetachedIsToldAndRunsOn) {
  inFreshProcess([] {
    unsetenv("TV_EVENT_BROKER");
    const Scratch scratch;
    setEnv("TV_TRACE", scratch.path("trace"));
    ZNTopoAPIStatus status;
    const auto client = clientFactory().createNotificationClient(ALL, status);
    detachResult = EINVAL;
    EXPECT_EQ(clientFactory().receiveNotification().getStatus(), ZN_API_THREAD_DETACH_FAILED);
    EXPECT_THAT(tracedTexts(scratch.read("trace"), 4),
                testing::ElementsAre("The pthread_detach() returns 22: Invalid argument"));
    ASSERT_TRUE(client->sendNotification(attributeChange(1)).isOK());
    EXPECT_EQ(described(client->getNextNotification()), "attribute 1");
    clientFactory().doCleanup();
    EXPECT_EQ(described(client->getNextNotification()), "shutdown 0");
    EXPECT_EQ(described(client->getNextNotification()), "error 45");
  });
}

TEST(ThreadFailureTest, ASystemWithoutSoSmallStacksGetsNoLargerOneInSilence) {
  inFreshProcess([] {
    unsetenv("TV_EVENT_BROKER");
    const Scratch scratch;
    setEnv("TV_TRACE", scratch.path("trace"));
    ZNTopoAPIStatus status;
    clientFactory().createNotificationClient(ALL, status);
    stackSizeResult = EINVAL;
    EXPECT_EQ(clientFactory().receiveNotification().getStatus(), ZN_API_THREAD_CREATE_FAILED);
    stackSizeResult = 0;
    EXPECT_THAT(
        tracedTexts(scratch.read("trace"), 4),
        testing::ElementsAre("The pthread_attr_setstacksize() returns 22: Invalid argument"));
    Consumer consumer;
    EXPECT_EQ(consumer.send(attributeChange(1)), ZN_API_SUCCESS);
    EXPECT_EQ(consumer.next(), "attribute 1");
  });
}

TEST(ThreadFailureTest, AProcessWithoutDescriptorsGetsNoThreadAndIsToldWhy) {
  if (detail::kIsSanitized) GTEST_SKIP() << "a sanitizer needs descriptors of its own";
  inFreshProcess([] {
    unsetenv("TV_EVENT_BROKER");
    ZNTopoAPIStatus status;
    clientFactory().createNotificationClient(ALL, status);
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    const rlimit none{3, limit.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    const ZNTopoAPIStatus answer = clientFactory().receiveNotification();
    setrlimit(RLIMIT_NOFILE, &limit);
    EXPECT_EQ(answer.getStatus(), ZN_API_THREAD_CREATE_FAILED);
    EXPECT_EQ(answer.getAuxMsg(), "The process has no file descriptor left\n");
    Consumer consumer;
    EXPECT_EQ(consumer.send(attributeChange(1)), ZN_API_SUCCESS);
    EXPECT_EQ(consumer.next(), "attribute 1");
  });
}

// With two threads on a session, an event that woke both is there for one of them alone.
TEST(ThreadFailureTest, ALookThatASignalEndsHoldsUpNoSender) {
  inFreshProcess([] {
    unsetenv("TV_EVENT_BROKER");
    Consumer consumer;
    ASSERT_EQ(consumer.send(attributeChange(1)), ZN_API_SUCCESS);
    ASSERT_EQ(consumer.next(), "attribute 1");
    isInterrupted = true;
    ASSERT_EQ(consumer.send(attributeChange(2)), ZN_API_SUCCESS);
    EXPECT_TRUE(eventually([] { return looks >= 10; }));
    ASSERT_EQ(consumer.send(attributeChange(3)), ZN_API_SUCCESS);
    isInterrupted = false;
    EXPECT_EQ(consumer.next(), "attribute 2");
    EXPECT_EQ(consumer.next(), "attribute 3");
  });
}

TEST(ThreadFailureTest, AWaitThatFailsIsToldAsADisconnection) {
  inFreshProcess([] {
    unsetenv("TV_EVENT_BROKER");
    Consumer consumer;
    waitError = EINVAL;
    // The thread may have been waiting before: then an event wakes it once more.
    ASSERT_EQ(consumer.send(attributeChange(1)), ZN_API_SUCCESS);
    std::string text = consumer.next();
    if (text == "attribute 1") text = consumer.next();
    EXPECT_EQ(text, "error 44");
    waitError = 0;
  });
}

}  // namespace
}  // namespace zntopo::test
