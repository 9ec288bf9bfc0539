#include "zntopo/api/detail/Batches.h"

#include <gtest/gtest.h>

#include <list>
#include <set>
#include <vector>

namespace zntopo::detail {
namespace {

std::vector<std::size_t> sizesOfBatches(int count) {
  std::list<int> numbers;
  for (int i = 0; i < count; ++i) numbers.push_back(i);
  std::vector<std::size_t> sizes;
  forEachBatch<std::list<int>>(numbers, 50, [&](const std::list<int>& batch) {
    sizes.push_back(batch.size());
    return true;
  });
  return sizes;
}

TEST(BatchesTest, TheFirstBatchHoldsFiftyAndEveryLaterOneFortyNine) {
  EXPECT_EQ(sizesOfBatches(120), (std::vector<std::size_t>{50, 49, 21}));
  EXPECT_EQ(sizesOfBatches(148), (std::vector<std::size_t>{50, 49, 49}));
  EXPECT_EQ(sizesOfBatches(149), (std::vector<std::size_t>{50, 49, 49, 1}));
}

TEST(BatchesTest, AWholeBatchAtTheEndIsNotFollowedByAnEmptyOne) {
  EXPECT_EQ(sizesOfBatches(1), (std::vector<std::size_t>{1}));
  EXPECT_EQ(sizesOfBatches(50), (std::vector<std::size_t>{50}));
  EXPECT_EQ(sizesOfBatches(51), (std::vector<std::size_t>{50, 1}));
  EXPECT_EQ(sizesOfBatches(99), (std::vector<std::size_t>{50, 49}));
}

TEST(BatchesTest, NothingIsNoBatch) { EXPECT_TRUE(sizesOfBatches(0).empty()); }

TEST(BatchesTest, TheWalkKeepsTheOrderAndStopsWhenTold) {
  const std::set<int> numbers = {7, 3, 5, 1};
  std::vector<int> seen;
  forEachBatch<std::list<int>>(numbers, 2, [&](const std::list<int>& batch) {
    seen.insert(seen.end(), batch.begin(), batch.end());
    return seen.size() < 3;
  });
  EXPECT_EQ(seen, (std::vector<int>{1, 3, 5}));
}

TEST(BatchesTest, AnIdentifierThatStandsTwiceInAListCountsTwice) {
  const std::list<int> numbers(60, 4);
  std::vector<std::size_t> sizes;
  forEachBatch<std::list<int>>(numbers, 50, [&](const std::list<int>& batch) {
    sizes.push_back(batch.size());
    return true;
  });
  EXPECT_EQ(sizes, (std::vector<std::size_t>{50, 10}));
}

}  // namespace
}  // namespace zntopo::detail
