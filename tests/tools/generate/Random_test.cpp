#include "tools/generate/Random.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace zntopo::tools {
namespace {

std::vector<int> numbers(std::uint64_t seed, std::uint64_t stream) {
  Random random(seed, stream);
  std::vector<int> result;
  for (int i = 0; i < 4; ++i) result.push_back(random.below(1000));
  return result;
}

TEST(RandomTest, TheSameSeedAndStreamGiveTheSameNumbersOnEveryMachine) {
  EXPECT_THAT(numbers(1, 0), testing::ElementsAre(542, 58, 454, 844));
  EXPECT_THAT(numbers(1, 1), testing::ElementsAre(219, 748, 864, 310));
}

TEST(RandomTest, SeedsAndStreamsDiffer) {
  EXPECT_NE(numbers(1, 0), numbers(2, 0));
  EXPECT_NE(numbers(1, 0), numbers(1, 1));
  EXPECT_NE(numbers(1, 2), numbers(2, 1));
}

TEST(RandomTest, AnOrderHoldsEachNumberOnce) {
  Random random(3, 0);
  std::vector<int> order = random.order(100);
  EXPECT_FALSE(std::is_sorted(order.begin(), order.end()));
  std::sort(order.begin(), order.end());
  for (int i = 0; i < 100; ++i) EXPECT_EQ(order[i], i);
  EXPECT_TRUE(random.order(0).empty());
}

TEST(RandomTest, ChanceKeepsToItsShare) {
  Random random(4, 0);
  int hits = 0;
  for (int i = 0; i < 10'000; ++i) hits += random.inThousand(250) ? 1 : 0;
  EXPECT_NEAR(hits, 2500, 200);
  EXPECT_FALSE(random.inThousand(0));
  EXPECT_TRUE(random.inThousand(1000));
  EXPECT_EQ(random.below(0), 0);
}

}  // namespace
}  // namespace zntopo::tools
