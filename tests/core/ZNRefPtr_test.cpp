#include "zntopo/core/ZNRefPtr.h"

#include <gtest/gtest.h>

#include <list>
#include <thread>
#include <utility>
#include <vector>

using zntopo::RefCounter;
using zntopo::ZNMutex;
using zntopo::ZNRefPtr;

namespace {

int alive = 0;

struct Device {
  Device() { ++alive; }
  virtual ~Device() { --alive; }
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;
  virtual int kind() const { return 0; }
};

struct Switch : Device {
  int kind() const override { return 1; }
};

// A handle that a device of a chain holds to the next one.
struct Link : Device {
  explicit Link(const ZNRefPtr<Link>& behind) : next(behind) {}
  ZNRefPtr<Link> next;
};

template <typename To, typename From>
ZNRefPtr<To> sharing(const ZNRefPtr<From>& from) {
  return {from.getCounter(), from.getMutex(), dynamic_cast<To*>(from.getObjectPointer())};
}

class ZNRefPtrTest : public testing::Test {
 protected:
  void SetUp() override { alive = 0; }
  void TearDown() override { EXPECT_EQ(alive, 0); }
};

}  // namespace

TEST(RefCounterTest, CountsFromItsStart) {
  RefCounter counter(1);
  EXPECT_FALSE(counter.isZero());
  counter.inc();
  counter.dec();
  counter.dec();
  EXPECT_TRUE(counter.isZero());
  EXPECT_TRUE(RefCounter(0).isZero());
}

TEST_F(ZNRefPtrTest, IsThreeWords) { EXPECT_EQ(sizeof(ZNRefPtr<Device>), 3 * sizeof(void*)); }

TEST_F(ZNRefPtrTest, AHandleFromNullHasNoCounterAndNoMutex) {
  const ZNRefPtr<Device> handle(nullptr);
  EXPECT_TRUE(handle.isNull());
  EXPECT_EQ(handle.getCounter(), nullptr);
  EXPECT_EQ(handle.getMutex(), nullptr);
  EXPECT_EQ(handle.getObjectPointer(), nullptr);
  const ZNRefPtr<Device> copy(handle);
  EXPECT_TRUE(copy.isNull());
  EXPECT_TRUE(ZNRefPtr<Device>().isNull());
}

TEST_F(ZNRefPtrTest, TheObjectDiesWithItsLastHandle) {
  {
    ZNRefPtr<Device> first(new Switch);
    EXPECT_EQ(first->kind(), 1);
    EXPECT_EQ((*first).kind(), 1);
    {
      const ZNRefPtr<Device> second(first);
      EXPECT_EQ(second.getCounter(), first.getCounter());
      EXPECT_EQ(second.getMutex(), first.getMutex());
    }
    EXPECT_EQ(alive, 1);
  }
  EXPECT_EQ(alive, 0);
}

TEST_F(ZNRefPtrTest, AssignmentReleasesTheOldObject) {
  ZNRefPtr<Device> handle(new Device);
  const ZNRefPtr<Device> other(new Switch);
  handle = other;
  EXPECT_EQ(alive, 1);
  EXPECT_EQ(handle.getObjectPointer(), other.getObjectPointer());
  handle = ZNRefPtr<Device>();
  EXPECT_TRUE(handle.isNull());
  EXPECT_EQ(alive, 1);
}

TEST_F(ZNRefPtrTest, AssignmentToItselfDoesNothing) {
  ZNRefPtr<Device> handle(new Device);
  Device* const object = handle.getObjectPointer();
  const ZNRefPtr<Device>& alias = handle;
  handle = alias;
  EXPECT_EQ(handle.getObjectPointer(), object);
  handle = std::move(const_cast<ZNRefPtr<Device>&>(alias));
  EXPECT_EQ(handle.getObjectPointer(), object);
  EXPECT_EQ(alive, 1);
}

TEST_F(ZNRefPtrTest, AssigningWhatHangsOnTheOldObjectKeepsItAlive) {
  ZNRefPtr<Link> head(new Link(ZNRefPtr<Link>(new Link(ZNRefPtr<Link>()))));
  EXPECT_EQ(alive, 2);
  head = head->next;
  EXPECT_EQ(alive, 1);
  EXPECT_TRUE(head->next.isNull());
}

TEST_F(ZNRefPtrTest, MovingTakesTheObjectAlong) {
  ZNRefPtr<Device> from(new Device);
  ZNRefPtr<Device> to(std::move(from));
  EXPECT_TRUE(from.isNull());  // NOLINT(clang-analyzer-cplusplus.Move)
  EXPECT_FALSE(to.isNull());
  from = std::move(to);
  EXPECT_TRUE(to.isNull());  // NOLINT(clang-analyzer-cplusplus.Move)
  EXPECT_EQ(alive, 1);
}

TEST_F(ZNRefPtrTest, AWidenedHandleAndItsSourceShareOneCount) {
  ZNRefPtr<Switch> source(new Switch);
  ZNRefPtr<Device> widened = sharing<Device>(source);
  EXPECT_EQ(widened.getCounter(), source.getCounter());
  source = ZNRefPtr<Switch>();
  EXPECT_EQ(alive, 1);
  EXPECT_EQ(widened->kind(), 1);
  widened = ZNRefPtr<Device>();
  EXPECT_EQ(alive, 0);
}

TEST_F(ZNRefPtrTest, ANarrowingThatFailsIsNullAndTheSourceKeepsItsCount) {
  ZNRefPtr<Device> source(new Device);
  EXPECT_TRUE(sharing<Switch>(source).isNull());
  EXPECT_EQ(alive, 1);
  EXPECT_FALSE(source.isNull());
  EXPECT_FALSE(source.getCounter()->isZero());
}

TEST_F(ZNRefPtrTest, TheSharingConstructorWantsAllThree) {
  const ZNRefPtr<Device> handle(new Device);
  Device* const object = handle.getObjectPointer();
  EXPECT_TRUE(ZNRefPtr<Device>(nullptr, handle.getMutex(), object).isNull());
  EXPECT_TRUE(ZNRefPtr<Device>(handle.getCounter(), nullptr, object).isNull());
  const ZNRefPtr<Device> none(handle.getCounter(), handle.getMutex(), nullptr);
  EXPECT_TRUE(none.isNull());
  EXPECT_EQ(none.getCounter(), nullptr);
  EXPECT_EQ(none.getMutex(), nullptr);
}

TEST_F(ZNRefPtrTest, HandlesCompareByTheirObject) {
  const ZNRefPtr<Device> one(new Device);
  const ZNRefPtr<Device> same(one);
  const ZNRefPtr<Device> other(new Device);
  EXPECT_TRUE(one == same);
  EXPECT_TRUE(one.equals(same));
  EXPECT_FALSE(one == other);
  EXPECT_FALSE(one.equals(other));
  EXPECT_NE(one < other, other < one);
  EXPECT_EQ(one > other, other < one);
}

TEST_F(ZNRefPtrTest, HoldsContainersToo) {
  const ZNRefPtr<std::list<int>> numbers(new std::list<int>{1, 2});
  const ZNRefPtr<std::list<int>> same(numbers);
  same->push_back(3);
  EXPECT_EQ(numbers->size(), 3U);
}

TEST_F(ZNRefPtrTest, SeveralThreadsMayCopyHandlesOfOneObject) {
  {
    const ZNRefPtr<Device> shared(new Device);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
      threads.emplace_back([handle = shared] {
        for (int i = 0; i < 1000; ++i) {
          ZNRefPtr<Device> copy(handle);
          const ZNRefPtr<Device> another = copy;
          copy = ZNRefPtr<Device>();
          ASSERT_EQ(another->kind(), 0);
        }
      });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(alive, 1);
  }
  EXPECT_EQ(alive, 0);
}
