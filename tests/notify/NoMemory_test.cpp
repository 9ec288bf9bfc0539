#include <atomic>
#include <cstddef>
#include <new>

#include "tests/notify/NotifySupport.h"
#include "tests/notify/TracedTexts.h"

namespace {

std::atomic<bool> memoryIsGone{false};

}  // namespace

extern "C" {

// What the library calls where it can do without: the real one, unless a test has taken the memory
// away.
void* __real__ZnwmRKSt9nothrow_t(std::size_t size, const std::nothrow_t& tag);

void* __wrap__ZnwmRKSt9nothrow_t(std::size_t size, const std::nothrow_t& tag) {
  return memoryIsGone ? nullptr : __real__ZnwmRKSt9nothrow_t(size, tag);
}
}

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::EndsWith;
using testing::IsEmpty;

TEST(NoMemoryTest, WithoutMemoryForTheFactoryThereIsNoneAndThePlatformIsTold) {
  inFreshProcess([] {
    const Scratch scratch;
    setEnv("TV_TRACE", scratch.path("trace"));
    setEnv("TV_LOG", scratch.path("log"));
    unsetenv("TV_EVENT_BROKER");
    memoryIsGone = true;
    EXPECT_EQ(TopoNotificationClientFactory::instance(), nullptr);
    memoryIsGone = false;
    EXPECT_THAT(tracedTexts(scratch.read("trace"), 4),
                testing::ElementsAre("Could not create TopoNotificationClientFactory in "
                                     "TopoNotificationClientFactory::instance"));
    EXPECT_THAT(linesOf(scratch.read("log")),
                testing::ElementsAre(EndsWith("Memory Allocation for TopoNotificationClientFactory "
                                              "Failed")));
  });
}

TEST(NoMemoryTest, AnEventThenHasNoSessionAndTheNextOneMayHave) {
  inFreshProcess([] {
    unsetenv("TV_EVENT_BROKER");
    setEnv("TV_LOG", "/dev/null");
    memoryIsGone = true;
    EXPECT_EQ(attributeChange(1)->createAndSendNotification().getStatus(), ZN_API_INTERNAL_ERROR);
    memoryIsGone = false;
    Consumer consumer;
    EXPECT_EQ(consumer.send(attributeChange(2)), ZN_API_SUCCESS);
    EXPECT_EQ(consumer.next(), "attribute 2");
  });
}

}  // namespace
}  // namespace zntopo::test
